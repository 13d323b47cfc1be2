#include "simulator/pendantwindow.h"
#include "simulator/statefile.h"
#include "simulator/userinput.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

using namespace sim;

class TestPendantWindow : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void failureIsShownInPlace();
    void messagesStay();
    void stationFollowsAndCommands();
    void noSheetReachesThePage();
    void reconnectingTellsThePlugin();
    void stateIsKeptOrItsLossShown();
    void fingersReachOnlyWhatIsThere();
    void closingDuringASlowCommand();

private:
    std::unique_ptr<SimulatedController> m_controller;
    std::unique_ptr<Journal> m_journal;
    std::unique_ptr<SimHost> m_host;
    std::unique_ptr<PluginLoader> m_loader;
    std::unique_ptr<PendantWindow> m_window;
};

void TestPendantWindow::init()
{
    FileFault fault;
    m_controller = std::make_unique<SimulatedController>(*loadCell(QStringLiteral(SHIPPED_CELL), &fault));
    m_journal = std::make_unique<Journal>();
    m_host = std::make_unique<SimHost>(m_controller.get(), m_journal.get());
    m_loader = std::make_unique<PluginLoader>(m_host.get());
    m_window = std::make_unique<PendantWindow>(m_controller.get(), m_journal.get(), m_host.get());
    // A library registers once per process, so the second window takes its factory as it stands.
    if (!pendixFactory()->names().contains(QStringLiteral("good"))) {
        m_window->addPlugin(m_loader->load(QStringLiteral(FIXTURE_FOLDER "/good.so")));
    } else {
        pendixFactory()->create(QStringLiteral("good"), m_loader.get())->init();
        m_window->addPlugin({{}, LoadFault::None, {}, {QStringLiteral("good")}, {QStringLiteral("Fixture good")}});
    }
    m_window->show();
}

void TestPendantWindow::cleanup()
{
    m_window.reset();
    m_loader.reset();
    m_host.reset();
}

void TestPendantWindow::failureIsShownInPlace()
{
    m_window->addPlugin(m_loader->load(QStringLiteral(FIXTURE_FOLDER "/missingsymbol.so")));
    auto* tabs = m_window->findChild<QTabWidget*>(QStringLiteral("pluginArea"));
    QCOMPARE(tabs->count(), 2);
    QCOMPARE(tabs->tabText(0), QStringLiteral("Fixture good"));
    tabs->setCurrentIndex(1);
    const auto* page = m_window->findChild<QLabel*>(QStringLiteral("loadFailure"));
    QVERIFY(page->isVisible());
    QVERIFY(page->text().contains(QLatin1String("missingsymbol.so")));
    QVERIFY(page->text().contains(QLatin1String("missing symbol: fixtureMissingFunction()")));
}

void TestPendantWindow::messagesStay()
{
    for (int i = 0; i < 50; ++i) {
        ThrowLog(QStringLiteral("plug-in %2"), static_cast<pendix::enThrowLogLevel>(i % 3), QString::number(i));
    }
    const auto* area = m_window->findChild<QTableWidget*>(QStringLiteral("messageArea"));
    QCOMPARE(area->rowCount(), 50);
    QCOMPARE(area->item(0, 3)->text(), QStringLiteral("0"));
    QCOMPARE(area->item(49, 2)->text(), QStringLiteral("plug-in %2"));
    QCOMPARE(area->item(49, 1)->text(), QStringLiteral("warning"));
    QTRY_VERIFY(area->viewport()->rect().intersects(area->visualItemRect(area->item(49, 3))));
}

void TestPendantWindow::stationFollowsAndCommands()
{
    auto* power = m_window->findChild<QCheckBox*>();
    power->click();
    QVERIFY(m_controller->isPowered());
    QVERIFY(pendixInterface()->getRobotEleStatus());
    m_controller->setPowered(false);
    QVERIFY(!power->isChecked());
    m_window->findChild<QComboBox*>()->setCurrentIndex(2);
    QCOMPARE(pendixInterface()->getUserOperateLevel(), 2);
}

void TestPendantWindow::noSheetReachesThePage()
{
    for (QWidget* widget = m_host->page(QStringLiteral("good")); widget != nullptr; widget = widget->parentWidget()) {
        QVERIFY(widget->styleSheet().isEmpty());
        QCOMPARE(widget->font(), QApplication::font());
    }
}

void TestPendantWindow::reconnectingTellsThePlugin()
{
    QSignalSpy connects(pendixInterface(), &pendix::InterfaceManager::sigNetworkConnect);
    m_controller->setConnected(false);
    QCOMPARE(pendixInterface()->getIOByType(QStringLiteral("DO")), QStringList());
    QVERIFY(pendixInterface()->getRegisterValue().isUndefined());
    QCOMPARE(connects.size(), 0);
    m_controller->setConnected(true);
    QCOMPARE(connects.size(), 1);
    QCOMPARE(pendixInterface()->getRegisterHash().size(), 60);
}

void TestPendantWindow::stateIsKeptOrItsLossShown()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("state.json"));
    const auto* notices = m_window->findChild<QWidget*>(QStringLiteral("noticeBar"));
    QTest::mouseClick(m_window->findShown(QStringLiteral("fixtureSave")), Qt::LeftButton);
    QVERIFY(!QFileInfo::exists(file));
    m_window->keepState(file);
    QTest::mouseClick(m_window->findShown(QStringLiteral("fixtureSave")), Qt::LeftButton);
    FileFault fault;
    QCOMPARE(loadState(file, &fault), m_controller->nodes());
    QVERIFY(!notices->isVisible());

    m_window->keepState(folder.filePath(QStringLiteral("missing/state.json")));
    QTest::mouseClick(m_window->findShown(QStringLiteral("fixtureSave")), Qt::LeftButton);
    QVERIFY(notices->isVisible());
    QVERIFY(notices->findChild<QLabel*>()->text().contains(QLatin1String("missing/state.json could not be written")));
    int found = 0;
    for (int i = 0; i < m_journal->size(); ++i) {
        found += m_journal->at(i).kind == EntryKind::Notice ? 1 : 0;
    }
    QCOMPARE(found, 1);
}

void TestPendantWindow::fingersReachOnlyWhatIsThere()
{
    QWidget* save = m_window->findShown(QStringLiteral("fixtureSave"));
    QVERIFY(userinput::click(save).isEmpty());
    QVERIFY(m_controller->weldEnabled());
    QLabel cover(m_window.get());
    cover.resize(m_window->size());
    cover.show();
    QVERIFY(userinput::click(save).contains(QLatin1String("covered")));
    cover.hide();
    save->setEnabled(false);
    QVERIFY(userinput::click(save).contains(QLatin1String("disabled")));
    save->hide();
    QVERIFY(userinput::click(save).contains(QLatin1String("not visible")));
    QCOMPARE(m_window->findShown(QStringLiteral("fixtureSave")), nullptr);
}

void TestPendantWindow::closingDuringASlowCommand()
{
    m_controller->setPlan(QStringLiteral("set_weld_enable"), {AnswerKind::Proper, 60000});
    QWidget* save = m_window->findShown(QStringLiteral("fixtureSave"));
    QVERIFY(save != nullptr);
    bool returned = false;
    QTimer::singleShot(0, save, [save, &returned] {
        QTest::mouseClick(save, Qt::LeftButton);
        returned = true;
    });
    QTimer::singleShot(100, m_window.get(), &QWidget::close);
    QApplication::exec();
    QVERIFY(returned);
    QVERIFY(!m_controller->weldEnabled());
}

QTEST_MAIN(TestPendantWindow)
#include "tst_pendantwindow.moc"
