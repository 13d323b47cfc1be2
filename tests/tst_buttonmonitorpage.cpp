#include "page/buttonmonitorpage/buttonmonitorpage.h"
#include "tests/fakehost.h"

#include <QDoubleSpinBox>
#include <QSignalSpy>
#include <QTest>

#include <memory>

class TestButtonMonitorPage : public QObject
{
    Q_OBJECT

private slots:
    void showsRealMapsOnly();
    void isForLookingOnly();
    void stopsOnceHoweverItIsClosed();
    void stopsWhenItGoesUnclosed();

private:
    static QStringList shown(const QDialog& dialog)
    {
        QStringList texts;
        for (const char* name : {"doubleSpinBox_Power", "doubleSpinBox_Frequency", "doubleSpinBox_3", "doubleSpinBox_4",
                                 "doubleSpinBox_5"}) {
            texts.append(dialog.findChild<QDoubleSpinBox*>(name)->text());
        }
        return texts;
    }

    FakeHost m_host;
};

void TestButtonMonitorPage::showsRealMapsOnly()
{
    ButtonMonitorPage page(nullptr);
    const QVariantMap all{{"get_laser_power", 11.5},
                          {"get_laser_frequency", 22},
                          {"get_laser_dutycycle", 120},
                          {"get_laser_wirespeed", 44},
                          {"get_laser_weldspeed", "55.5"}};
    page.onWelderStateChanged(all);
    const QStringList values{"11.50", "22.00", "100.00%", "44.00", "55.50"};
    QCOMPARE(shown(page), values);
    for (const QVariant& other : {QVariant(), QVariant(7), QVariant(QVariantList{all}),
                                  QVariant(QVariantHash{{"get_laser_power", 1.0}}), QVariant("get_laser_power")}) {
        page.onWelderStateChanged(other);
        QCOMPARE(shown(page), values);
    }
    page.onWelderStateChanged(QVariantMap{{"get_laser_power", 12}, {"get_laser_frequency", qQNaN()}});
    QCOMPARE(shown(page), QStringList({"12.00", "0.00", "0.00%", "0.00", "0.00"}));
}

void TestButtonMonitorPage::isForLookingOnly()
{
    ButtonMonitorPage page(nullptr);
    page.initStyle();
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    QCOMPARE(page.minimumSize(), page.maximumSize());
    auto* power = page.findChild<QDoubleSpinBox*>("doubleSpinBox_Power");
    QTest::mouseClick(power->findChild<QWidget*>("qt_spinbox_lineedit"), Qt::LeftButton);
    QTest::keyClicks(&page, "42");
    QVERIFY(!power->hasFocus());
    QCOMPARE(power->value(), 0.0);

    // An owner that widens a range gets the room for it.
    const int narrow = page.width();
    power->setMaximum(1e15);
    QTRY_VERIFY(page.width() > narrow);
    QCOMPARE(page.minimumSize(), page.maximumSize());
}

void TestButtonMonitorPage::stopsOnceHoweverItIsClosed()
{
    const std::function<void(ButtonMonitorPage*)> ways[] = {
        [](ButtonMonitorPage* page) { QTest::keyClick(page, Qt::Key_Escape); },
        [](ButtonMonitorPage* page) { page->close(); },
        [](ButtonMonitorPage* page) {
            page->accept();
            page->reject();
            page->close();
        },
    };
    for (const auto& closing : ways) {
        QPointer<ButtonMonitorPage> page = new ButtonMonitorPage(nullptr);
        for (int opening = 0; opening < 2 && page != nullptr; ++opening) {
            page->show();
            m_host.forget();
            closing(page);
            const QVector<QPair<QString, QJsonValue>> stop{{"start_laserweld_monitor", false}};
            QCOMPARE(m_host.commands, stop);
            QCOMPARE(m_host.calls, QStringList({"disconnectVexaServiceData Corvane weld_monitor_data ''",
                                                "changeModelWindowStatus Corvane false"}));
            QCOMPARE(m_host.logs.last().items, QStringList({"[", "../corvane/page/buttonmonitorpage", ":", "49", "]",
                                                            "ChangeModelWindowStatus false"}));
        }
        delete page;
    }
}

void TestButtonMonitorPage::stopsWhenItGoesUnclosed()
{
    const struct {
        const char* name;
        bool isShown;
        std::function<void(ButtonMonitorPage*)> then;
        int stops;
    } rows[] = {
        {"never shown", false, [](ButtonMonitorPage*) {}, 0},
        {"shown", true, [](ButtonMonitorPage*) {}, 1},
        {"hidden", true, [](ButtonMonitorPage* page) { page->hide(); }, 1},
        {"reparented", true, [](ButtonMonitorPage* page) { page->setParent(page->parentWidget()); }, 1},
        {"closed", true, [](ButtonMonitorPage* page) { page->close(); }, 0},
    };
    for (const auto& row : rows) {
        QWidget owner;
        auto* page = new ButtonMonitorPage(&owner);
        QSignalSpy finished(page, &QDialog::finished);
        m_host.forget();
        page->setVisible(row.isShown);
        row.then(page);
        QCOMPARE(m_host.commands.size(), finished.size());
        m_host.forget();
        finished.clear();
        delete page;
        QVERIFY2(m_host.commands.size() == row.stops && m_host.calls.size() == 2 * row.stops, row.name);
        QCOMPARE(finished.size(), 0);
    }
}

QTEST_MAIN(TestButtonMonitorPage)
#include "tst_buttonmonitorpage.moc"
