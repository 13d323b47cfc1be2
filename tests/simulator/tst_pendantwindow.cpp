#include "simulator/confignodes.h"
#include "simulator/livepicture.h"
#include "simulator/nodespanel.h"
#include "simulator/pendantbutton.h"
#include "simulator/pendantwindow.h"
#include "simulator/program/programeditor.h"
#include "simulator/statefile.h"
#include "simulator/userinput.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QJsonDocument>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeWidget>
#include <QtTest>

using namespace sim;

class TestPendantWindow : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void startsInTheRoomThereIs();
    void pagesComeAndGo();
    void lateComerDisturbsNothing();
    void statusItemOfWhom();
    void readingTheHistory();
    void positionIsMovedAndFollowed();
    void storedPointsAreShown();
    void storedNodesAreShown();
    void stateIsKeptOrItsLossShown();
    void fingersReachOnlyWhatIsThere();
    void closingDuringASlowCommand();
    void closingWithAnUnsavedProgram();
    void monitorWaitsForItsAnswers();

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
        m_window->addPlugin({{}, LoadFault::None, {}, {QStringLiteral("good")}, {QStringLiteral("Fixture good")}, {}});
    }
    m_window->show();
}

void TestPendantWindow::cleanup()
{
    m_window.reset();
    m_loader.reset();
    m_host.reset();
}

void TestPendantWindow::startsInTheRoomThereIs()
{
    // What Weld Setup and the widest page, Weld I/O, need at 96 dpi to be shown without scrolling sideways.
    const QSize needed[] = {{841, 542}, {899, 542}};
    const auto* inspector = m_window->findChild<QTabWidget*>(QStringLiteral("inspector"));
    const auto* area = m_window->findChild<QTabWidget*>(QStringLiteral("pluginArea"));
    auto* button = m_window->findChild<QPushButton*>(QStringLiteral("showInspector"));
    for (const QSize& room : {QSize(1024, 768), QSize(1920, 1080)}) {
        m_window->fitInto(room);
        QTRY_COMPARE(m_window->size(), room.boundedTo(QSize(PendantWindow::kWidth, PendantWindow::kHeight)));
        const bool narrow = room.width() < PendantWindow::kWidth;
        QCOMPARE(inspector->isVisible(), !narrow);
        QCOMPARE(button->isChecked(), !narrow);
        QTRY_COMPARE(area->currentWidget()->size().expandedTo(needed[narrow ? 0 : 1]), area->currentWidget()->size());
        if (narrow) {
            button->click();
            QTRY_VERIFY(inspector->isVisible() && inspector->width() <= 350);
        }
    }
}

void TestPendantWindow::pagesComeAndGo()
{
    const QString good = QStringLiteral("good");
    m_window->addPlugin({QStringLiteral("none.so"), LoadFault::NoSuchFile, {}, {}, {}, {}});
    const auto* tabs = m_window->findChild<QTabWidget*>(QStringLiteral("pluginArea"));
    const QPointer<QLabel> reason = m_window->findChild<QLabel*>(QStringLiteral("loadFailure"));
    QVERIFY(reason->text().contains(QLatin1String("none.so")));
    const QPointer<QWidget> first = m_host->page(good);
    m_host->createCenterWidget(good, new QLabel);
    QTRY_VERIFY(first == nullptr);
    QVERIFY(tabs->currentWidget()->isAncestorOf(m_host->page(good)));
    QCOMPARE(tabs->tabText(0), QStringLiteral("Fixture good"));
    // A plug-in may destroy its page before it hands over the next one.
    delete m_host->page(good);
    QCOMPARE(tabs->count(), 1);
    m_host->createCenterWidget(good, new QLabel);
    QCOMPARE(tabs->count(), 2);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(reason != nullptr && m_host->page(good) != nullptr);

    const auto* status = m_window->findChild<QWidget*>(QStringLiteral("statusLine"));
    QCOMPARE(status->findChildren<QLabel*>().size(), 2);
    m_host->withdraw(good);
    QCOMPARE(tabs->count(), 1);
    QVERIFY(reason != nullptr);
    QCOMPARE(status->findChildren<QLabel*>().size(), 1);
    m_host->createCenterWidget(good, new QLabel);
    QCOMPARE(tabs->count(), 1);
}

void TestPendantWindow::lateComerDisturbsNothing()
{
    ProgramEditor* program = m_window->programEditor();
    program->readRegistry();
    m_window->showProgram(true);
    auto* instructions = program->findChild<QTreeWidget*>();
    const QTreeWidgetItem* picked = instructions->topLevelItem(0)->child(0);
    instructions->setCurrentItem(instructions->topLevelItem(0)->child(0));
    const auto* tabs = m_window->findChild<QTabWidget*>(QStringLiteral("pluginArea"));

    m_window->addPlugin(m_loader->load(QStringLiteral(MIROLT_MODULE)));
    QVERIFY(program->isVisible());
    QCOMPARE(instructions->currentItem(), picked);
    m_window->showProgram(false);
    QCOMPARE(tabs->count(), 2);
    QVERIFY(tabs->currentWidget()->isAncestorOf(m_host->page(QStringLiteral("good"))));
}

void TestPendantWindow::statusItemOfWhom()
{
    auto* picture = m_window->findChild<LivePicture*>();
    const auto mirrored = [picture] {
        picture->refresh();
        return picture->pixmap(Qt::ReturnByValue).width();
    };
    const auto give = [this](const QString& plugin, const QSize& size, int position) {
        auto* item = new QLabel;
        item->setFixedSize(size);
        m_host->createStatusBar(plugin, item, position);
    };
    const int current = mirrored();
    QVERIFY(current > 30);
    give(QStringLiteral("other"), QSize(20, 10), 0);
    QTest::qWait(0);
    QCOMPARE(mirrored(), current);
    give(QStringLiteral("Corvane"), QSize(30, 12), 2);
    QTRY_COMPARE(mirrored(), 30);
}

void TestPendantWindow::readingTheHistory()
{
    const auto tell = [](const QString& text) { ThrowLog(QStringLiteral("good"), pendix::error, text); };
    auto* area = m_window->findChild<QTableWidget*>(QStringLiteral("messageArea"));
    const QScrollBar* bar = area->verticalScrollBar();
    const QString words = QStringLiteral("several words ").repeated(40);
    const auto showsAllOf = [area](int row) {
        const int needed = area->fontMetrics()
                               .boundingRect(QRect(0, 0, area->columnWidth(3) - 8, 10000), Qt::TextWordWrap,
                                             area->item(row, 3)->text())
                               .height();
        return area->rowHeight(row) >= needed;
    };
    for (int i = 0; i < 30; ++i) {
        tell(words);
    }
    QTRY_VERIFY(bar->maximum() > 0 && bar->value() == bar->maximum() && showsAllOf(29));
    // Narrower: the end stays in view, and what comes into view is shown whole.
    m_window->resize(900, 700);
    QTRY_VERIFY(bar->value() == bar->maximum() && showsAllOf(29));
    area->verticalScrollBar()->setValue(0);
    QTRY_VERIFY(showsAllOf(0));
    tell(QStringLiteral("new"));
    QTest::qWait(20);
    QCOMPARE(bar->value(), 0);
    area->verticalScrollBar()->setValue(bar->maximum());
    QTRY_VERIFY(bar->value() == bar->maximum());
    tell(words);
    QTRY_VERIFY(bar->value() == bar->maximum() && showsAllOf(31));
    QVERIFY(area->viewport()->rect().intersects(area->visualItemRect(area->item(31, 3))));
}

void TestPendantWindow::positionIsMovedAndFollowed()
{
    m_window->findChild<QTabWidget*>(QStringLiteral("inspector"))->setCurrentIndex(3);
    auto* x = m_window->findChild<QDoubleSpinBox*>(QStringLiteral("robotPositionX"));
    auto* b = m_window->findChild<QDoubleSpinBox*>(QStringLiteral("robotPositionB"));
    QVERIFY(x->isVisible() && b->isVisible());
    QCOMPARE(x->value(), m_controller->position().x);
    // More digits than the boxes show: showing them moves nothing, nor does moving along another axis.
    const Pose exact = {1.00004, 2, 3, 4, 5.12345, 6};
    m_controller->setPosition(exact);
    QCOMPARE(b->cleanText(), QStringLiteral("5.123"));
    QVERIFY(m_controller->position() == exact);
    QCOMPARE(userinput::type(x, QStringLiteral("-12.")), QString());
    // What is being typed is left alone.
    QCOMPARE(x->cleanText(), QStringLiteral("-12."));
    QVERIFY(m_controller->position() == (Pose{-12, 2, 3, 4, 5.12345, 6}));
}

void TestPendantWindow::storedPointsAreShown()
{
    const auto* table = m_window->findChild<QTableView*>(QStringLiteral("pointsTable"));
    const QAbstractItemModel* model = table->model();
    const auto rowText = [model](int row) {
        QStringList texts;
        for (int column = 0; column < model->columnCount(); ++column) {
            texts.append(model->index(row, column).data().toString());
        }
        return texts.join(QLatin1Char(' '));
    };
    const auto isInView = [table](int row) {
        return table->isVisible() &&
               table->viewport()->rect().contains(table->visualRect(table->model()->index(row, 0)));
    };
    const int before = model->rowCount();
    QCOMPARE(pendixInterface()->getPointNameList().size(), before);
    m_controller->setPosition({1, -2.5, 3, 4, 5, 6});
    for (int i = 1; i <= 60; ++i) {
        pendixInterface()->addCurrentPoint(QStringLiteral("p%1").arg(i), false, "weld_head", "table_left");
    }
    QCOMPARE(model->rowCount(), before + 60);
    QCOMPARE(rowText(before), QStringLiteral("p1 1.000 -2.500 3.000 4.000 5.000 6.000 weld_head table_left"));
    // Also if the panel was hidden meanwhile.
    m_window->findChild<QTabWidget*>(QStringLiteral("inspector"))->setCurrentIndex(3);
    QTRY_VERIFY(isInView(before + 59));
    m_controller->setPosition({});
    pendixInterface()->addCurrentPoint(QStringLiteral("Home"), true, "tool0", "wobj0");
    QCOMPARE(rowText(0), QStringLiteral("Home 0.000 0.000 0.000 0.000 0.000 0.000 tool0 wobj0"));
    QTRY_VERIFY(isInView(0));
}

void TestPendantWindow::storedNodesAreShown()
{
    const auto* panel = m_window->findChild<NodesPanel*>();
    panel->findChild<QComboBox*>()->setCurrentText(QLatin1String(node::kCurves));
    // First while another panel is shown.
    for (const int speed : {17, 18}) {
        const QJsonObject curve = {{"laser_feed_node", 2},
                                   {"feed_nodes_data", QJsonArray{QJsonArray{0, 1}, QJsonArray{5, speed}}}};
        m_controller->execute(QStringLiteral("Corvane"), {{"set_weld_curve_feed_config", curve}});
        m_window->findChild<QTabWidget*>(QStringLiteral("inspector"))->setCurrentIndex(2);
        const QString text = panel->findChild<QPlainTextEdit*>()->toPlainText();
        QCOMPARE(QJsonDocument::fromJson(text.toUtf8()).object(),
                 m_controller->nodes().value(node::kCurves).toObject());
    }
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
    QVERIFY(loadState(file, &fault)->nodes == m_controller->nodes());
    pendixInterface()->addCurrentPoint(QStringLiteral("p1"), false, "tool0", "wobj0");
    QVERIFY(loadState(file, &fault)->points == m_controller->points());
    m_controller->setRegisterPublished(0, false);
    QCOMPARE(loadState(file, &fault)->registers.withdrawn, m_controller->cell().changes.withdrawn);
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

void TestPendantWindow::closingWithAnUnsavedProgram()
{
    m_window->programEditor()->program()->insertLine(0, QStringLiteral("Wait(1);"), QStringLiteral("Wait"));
    for (const auto& [answer, staysOpen] : {std::pair(QMessageBox::Cancel, true), {QMessageBox::Discard, false}}) {
        m_window->close();
        QVERIFY(m_window->isVisible());
        auto* box = m_window->findChild<QMessageBox*>();
        QVERIFY(box != nullptr);
        box->button(answer)->click();
        QCOMPARE(m_window->isVisible(), staysOpen);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

void TestPendantWindow::monitorWaitsForItsAnswers()
{
    const QString command = QStringLiteral("start_laserweld_monitor");
    m_window->addPlugin(m_loader->load(QStringLiteral(CORVANE_MODULE)));
    QWidget* button = m_window->findShown(QStringLiteral("pendantButton_pendant_1_1"));
    QVERIFY(button != nullptr);
    const auto dialog = [this] { return m_window->findChild<QDialog*>(QStringLiteral("ButtonMonitorPage")); };
    const auto commands = [&] {
        QStringList arguments;
        for (int i = 0; i < m_journal->size(); ++i) {
            if (m_journal->at(i).kind == EntryKind::Command && m_journal->at(i).subject == command) {
                arguments.append(m_journal->at(i).text);
            }
        }
        return arguments;
    };
    QTest::mouseClick(button, Qt::LeftButton);
    const auto* speed = dialog()->findChild<QDoubleSpinBox*>(QStringLiteral("doubleSpinBox_5"));
    QVERIFY(speed->value() > 0);
    m_controller->setConnected(false);
    QTest::qWait(500);
    QVERIFY2(speed->value() > 0, "nothing comes without a line, no zeros either");
    m_controller->setConnected(true);

    m_controller->setPlan(command, {AnswerKind::Proper, 300});
    QTimer::singleShot(0, button, [button] { QTest::mouseClick(button, Qt::LeftButton); });
    dialog()->close();
    QVERIFY2(!dialog()->isVisible(), "it does not come back to vanish when its stop is answered");
    QTRY_COMPARE(dialog(), nullptr);
    QCOMPARE(commands(), QStringList({"true", "false"}));

    QTest::mouseClick(button, Qt::LeftButton);
    bool wasWhole = false;
    const QPointer<QTabWidget> inspector = m_window->findChild<QTabWidget*>(QStringLiteral("inspector"));
    QTimer::singleShot(100, m_journal.get(), [&] { wasWhole = inspector != nullptr; });
    m_window.reset();
    QVERIFY2(wasWhole, "the window lives on until the stop is answered");
    QCOMPARE(commands(), QStringList({"true", "false", "true", "false"}));
}

QTEST_MAIN(TestPendantWindow)
#include "tst_pendantwindow.moc"
