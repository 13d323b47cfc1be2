#include "simulator/journal.h"
#include "simulator/pendantbutton.h"
#include "simulator/pendantwindow.h"

#include <QDialog>
#include <QPushButton>
#include <QtTest>

using namespace sim;

class TestButtonStrip;
using End = std::function<void(TestButtonStrip&, PendantButton*)>;

Q_DECLARE_METATYPE(End)

namespace
{
const QString kPlugin = QStringLiteral("Corvane");
}

class TestButtonStrip : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void columnsAndRows();
    void everyPressHasItsRelease_data();
    void everyPressHasItsRelease();
    void oneHandAtATime();
    void handlerEndsItsOwnButton();
    void replacedAndWithdrawn();
    void offIsOff();
    void noTextIsCut();
    void modalIsKnown();

private:
    void give(const QString& name, const QStringList& first, const QStringList& second);
    PendantButton* button(int column, int row, const QString& plugin = kPlugin) const
    {
        return qobject_cast<PendantButton*>(
            m_window->findShown(QStringLiteral("pendantButton_%1_%2_%3").arg(plugin).arg(column).arg(row)));
    }

    std::unique_ptr<SimulatedController> m_controller;
    std::unique_ptr<Journal> m_journal;
    std::unique_ptr<SimHost> m_host;
    std::unique_ptr<PendantWindow> m_window;
    QStringList m_calls; ///< "Wiring+" for a press, "Wiring-" for a release
    std::function<void(bool)> m_inCall;
};

void TestButtonStrip::init()
{
    FileFault fault;
    m_calls.clear();
    m_inCall = nullptr;
    m_controller = std::make_unique<SimulatedController>(*loadCell(QStringLiteral(SHIPPED_CELL), &fault));
    m_journal = std::make_unique<Journal>();
    m_host = std::make_unique<SimHost>(m_controller.get(), m_journal.get());
    m_window = std::make_unique<PendantWindow>(m_controller.get(), m_journal.get(), m_host.get());
    m_window->show();
    give(kPlugin, {"Work mode", "Wiring", "Red Light"}, {"ProtectGas", "Retract Wire"});
    ChangePhyButtonStatus(kPlugin, kPlugin, true);
    QApplication::setActiveWindow(m_window.get());
}

void TestButtonStrip::cleanup()
{
    m_window.reset();
    m_host.reset();
}

void TestButtonStrip::give(const QString& name, const QStringList& first, const QStringList& second)
{
    const auto records = [this](const QStringList& texts) {
        QList<pendix::PhysicalButton> list;
        for (const QString& text : texts) {
            list.append({text, {}, {}, [this, text](bool pressed) {
                             m_calls.append(text + QLatin1Char(pressed ? '+' : '-'));
                             if (m_inCall) {
                                 m_inCall(pressed);
                             }
                         }});
        }
        return list;
    };
    CreatePhyButtonList(name, name, records(first), records(second), {QString()});
}

void TestButtonStrip::columnsAndRows()
{
    QCOMPARE(button(1, 1)->text(), QStringLiteral("Work mode"));
    QCOMPARE(button(1, 3)->text(), QStringLiteral("Red Light"));
    QCOMPARE(button(2, 2)->text(), QStringLiteral("Retract Wire"));
    const auto place = [&](int column, int row) { return button(column, row)->mapTo(m_window.get(), QPoint()); };
    QTRY_VERIFY(place(1, 1).x() == place(1, 3).x() && place(1, 1).x() < place(2, 1).x());
    QVERIFY(place(1, 1).y() < place(1, 2).y() && place(1, 2).y() == place(2, 2).y());
    for (const PendantButton* any : m_window->findChildren<PendantButton*>()) {
        QVERIFY(any->width() >= 48 && any->height() >= 48);
    }
    // A second plug-in's buttons, though only in the second list, are in line with the first one's.
    give(QStringLiteral("other"), {}, {"Other"});
    QTRY_VERIFY(button(2, 1, "other")->mapTo(m_window.get(), QPoint()).x() == place(2, 1).x());
}

void TestButtonStrip::everyPressHasItsRelease_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::addColumn<End>("end");
    const auto row = [](const char* name, bool byKey, const End& end) { QTest::newRow(name) << byKey << end; };
    using Test = TestButtonStrip;
    row("released on it", false, [](Test&, PendantButton* b) { QTest::mouseRelease(b, Qt::LeftButton); });
    row("released beside it", false,
        [](Test&, PendantButton* b) { QTest::mouseRelease(b, Qt::LeftButton, {}, QPoint(-500, 5)); });
    row("released on something else", false,
        [](Test& t, PendantButton*) { QTest::mouseRelease(t.m_window.get(), Qt::LeftButton); });
    row("hidden", false, [](Test&, PendantButton* b) { b->hide(); });
    row("hidden with the window", false, [](Test& t, PendantButton*) { t.m_window->hide(); });
    row("disabled", false, [](Test&, PendantButton* b) { b->setEnabled(false); });
    row("switched off", true, [](Test&, PendantButton*) { ChangePhyButtonStatus(kPlugin, kPlugin, false); });
    row("destroyed", false, [](Test&, PendantButton* b) { delete b; });
    row("window destroyed", true, [](Test& t, PendantButton*) { t.m_window.reset(); });
    row("replaced", false, [](Test& t, PendantButton*) { t.give(kPlugin, {"A"}, {}); });
    row("withdrawn", true, [](Test& t, PendantButton*) { t.m_host->withdraw(kPlugin); });
    row("another window", false, [](Test&, PendantButton*) {
        QWidget other;
        other.show();
        QApplication::setActiveWindow(&other);
    });
    row("a dialog", false, [](Test& t, PendantButton*) {
        QDialog dialog(t.m_window.get());
        dialog.setModal(true);
        dialog.show();
    });
    row("key up", true, [](Test&, PendantButton* b) { QTest::keyRelease(b, Qt::Key_Space); });
    row("focus goes", true, [](Test& t, PendantButton*) { t.button(2, 1)->setFocus(); });
}

void TestButtonStrip::everyPressHasItsRelease()
{
    QFETCH(bool, byKey);
    QFETCH(End, end);
    PendantButton* wiring = button(1, 2);
    if (byKey) {
        wiring->setFocus();
        QTest::keyPress(wiring, Qt::Key_Space);
    } else {
        QTest::mousePress(wiring, Qt::LeftButton);
    }
    QVERIFY(wiring->isDown());
    QCOMPARE(m_calls, QStringList("Wiring+"));
    end(*this, wiring);
    QCOMPARE(m_calls, QStringList({"Wiring+", "Wiring-"}));
    QTest::qWait(0);
    QCOMPARE(m_calls.size(), 2);
}

void TestButtonStrip::oneHandAtATime()
{
    PendantButton* wiring = button(1, 2);
    wiring->setFocus();
    const auto repeat = [wiring](QEvent::Type type) {
        QKeyEvent event(type, Qt::Key_Return, Qt::NoModifier, {}, true);
        QApplication::sendEvent(wiring, &event);
    };
    QTest::keyPress(wiring, Qt::Key_Return);
    for (int i = 0; i < 3; ++i) {
        repeat(QEvent::KeyRelease);
        repeat(QEvent::KeyPress);
    }
    QTest::mouseClick(wiring, Qt::LeftButton);
    QTest::keyClick(wiring, Qt::Key_Space);
    QCOMPARE(m_calls, QStringList("Wiring+"));
    QTest::keyRelease(wiring, Qt::Key_Return);
    repeat(QEvent::KeyPress);
    QTest::mouseClick(wiring, Qt::RightButton);
    QCOMPARE(m_calls, QStringList({"Wiring+", "Wiring-"}));
}

void TestButtonStrip::handlerEndsItsOwnButton()
{
    m_inCall = [this](bool) {
        m_host->withdraw(kPlugin);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
    QTest::mousePress(button(1, 2), Qt::LeftButton);
    QCOMPARE(m_calls, QStringList({"Wiring+", "Wiring-"}));
    QCOMPARE(button(1, 1), nullptr);

    // One that comes up while the press is still being worked at, and ends with its release.
    init();
    m_inCall = [this](bool pressed) {
        if (pressed) {
            QTest::mouseRelease(button(1, 2), Qt::LeftButton);
        } else {
            delete button(1, 2);
        }
    };
    QTest::mousePress(button(1, 2), Qt::LeftButton);
    QCOMPARE(m_calls, QStringList({"Wiring+", "Wiring-"}));
}

void TestButtonStrip::replacedAndWithdrawn()
{
    const auto* strip = m_window->findChild<QWidget*>(QStringLiteral("buttonStrip"));
    const int without = m_window->findChild<QWidget*>(QStringLiteral("pluginArea"))->width();
    give(QStringLiteral("other"), {"Other"}, {});
    give(kPlugin, {"A"}, {"B", "C"});
    QTest::qWait(0);
    QCOMPARE(button(1, 1)->text(), QStringLiteral("A"));
    QCOMPARE(button(1, 2), nullptr);
    QVERIFY(button(2, 2)->isEnabled() && !button(1, 1, "other")->isEnabled());
    QVERIFY(button(2, 2)->y() < button(1, 1, "other")->mapTo(m_window.get(), QPoint()).y());
    m_host->withdraw(kPlugin);
    QVERIFY(strip->isVisible());
    m_host->withdraw(QStringLiteral("other"));
    QVERIFY(!strip->isVisible());
    QVERIFY(m_host->buttonLists()->all().isEmpty());
    QTRY_VERIFY(m_window->findChild<QWidget*>(QStringLiteral("pluginArea"))->width() > without);
}

void TestButtonStrip::offIsOff()
{
    give(QStringLiteral("other"), {"Other"}, {});
    QTest::mouseClick(button(1, 1, "other"), Qt::LeftButton);
    ChangePhyButtonStatus(kPlugin, kPlugin, false);
    QTest::mouseClick(button(1, 1), Qt::LeftButton);
    QTest::keyClick(button(1, 1), Qt::Key_Space);
    QCOMPARE(m_calls, QStringList());
    const int size = m_journal->size();
    ChangePhyButtonStatus(kPlugin, QStringLiteral("never given"), true);
    QCOMPARE(m_journal->at(size + 1).kind, EntryKind::Notice);
}

void TestButtonStrip::noTextIsCut()
{
    const QString longWord = QStringLiteral("Drahtvorschubgeschwindigkeitsregelung");
    give(kPlugin, {longWord, "one two three four five six seven"}, {QStringLiteral("保护气工作模式送丝退丝红光")});
    for (const QSize& room : {QSize(1024, 768), QSize(1280, 800)}) {
        m_window->fitInto(room);
        QTRY_COMPARE(m_window->size(), room);
        for (const PendantButton* any : m_window->findChildren<PendantButton*>()) {
            if (!any->isVisible()) {
                continue; // waits for its end
            }
            const int flags = any->text() == longWord ? Qt::TextWrapAnywhere : Qt::TextWordWrap;
            const QRect needed = any->fontMetrics().boundingRect(QRect(0, 0, any->width(), 1000), flags, any->text());
            QVERIFY2(needed.width() <= any->width() && needed.height() <= any->height(), qPrintable(any->text()));
            QVERIFY(any->width() < 200 &&
                    m_window->rect().contains(QRect(any->mapTo(m_window.get(), {}), any->size())));
        }
    }
}

void TestButtonStrip::modalIsKnown()
{
    QSignalSpy changes(m_host.get(), &SimHost::modalChanged);
    ChangeModelWindowStatus(kPlugin, true);
    ChangeModelWindowStatus(kPlugin, true);
    QVERIFY(m_host->isModal(kPlugin) && !m_host->isModal(QStringLiteral("other")));
    m_host->withdraw(kPlugin);
    QVERIFY(!m_host->isModal(kPlugin));
    QCOMPARE(changes, QList<QVariantList>({{kPlugin, true}, {kPlugin, false}}));
}

QTEST_MAIN(TestButtonStrip)
#include "tst_buttonstrip.moc"
