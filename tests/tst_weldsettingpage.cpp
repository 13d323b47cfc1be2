#include "page/blockingpause.h"
#include "page/weldsettingpage.h"
#include "tests/fakehost.h"
#include "tests/formdriver.h"
#include "widgets/enablebutton.h"

#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>

#include <csignal>
#include <sys/time.h>

namespace
{

const QString kNode = "weld_setting_config";
const QString kSave = "set_weld_setting_config";
const QString kEnable = "set_weld_enable";
const QString kSwitch = "pushButton_main_enable";
const QString kCheckTimeMessage = "2|The detected time of the light output is later than the light output inspection "
                                  "time; saving failed!";

/// A different value in every member, so that swapped keys show.
QJsonObject storedNode()
{
    return {{"laser_main_enable", false},
            {"laser_comm_type", 0},
            {"laser_power", 2111},
            {"feedback_delay", 1112},
            {"pre_gas_time", 113},
            {"delay_off_time", 114},
            {"detection_delay", 115},
            {"manual_gas_time", 1116},
            {"retraction_distance", 17},
            {"retraction_speed", 18},
            {"detection_time", 119},
            {"feeder_enable", true},
            {"wire_feeder_comm_type", 0},
            {"max_feed_speed", 121},
            {"manual_feed_speed", 122},
            {"manual_retract_speed", 123},
            {"wire_feedback_detection", 124},
            {"laser_check_out_time", 125}};
}

/// A page on the screen with a host behind it.
struct Shown {
    FakeHost host;
    WeldSettingPage page{nullptr};
    FormDriver form{&page};

    explicit Shown(const QJsonObject& changes = {}, int level = 3)
    {
        QJsonObject node = storedNode();
        for (auto it = changes.begin(); it != changes.end(); ++it) {
            node.insert(it.key(), it.value());
        }
        host.nodes[kNode] = node;
        host.level = level;
        page.show();
        host.forget();
    }

    bool isOn() const { return form.find<EnableButton>(kSwitch)->getIsEnabled(); }
    bool editable() const
    {
        const QStringList lockable{
            "frame", "frame_2", "frame_3", "frame_4", "frame_WireSticking", "pushButton_cancel", "pushButton_save"};
        const int enabled = std::count_if(lockable.begin(), lockable.end(),
                                          [this](const QString& name) { return form.isEnabled(name); });
        if (enabled != 0 && enabled != lockable.size()) {
            qFatal("partly locked");
        }
        return enabled != 0;
    }
    QStringList sent() const
    {
        QStringList names;
        for (const auto& command : host.commands) {
            names.append(command.second.isString() ? command.first + '=' + command.second.toString() : command.first);
        }
        return names;
    }
};

} // namespace

class TestWeldSettingPage : public QObject
{
    Q_OBJECT

private slots:
    void roundTrip();
    void badNodeChangesNothing();
    void storedValues_data();
    void storedValues();
    void showing();
    void dependentFields();
    void hiddenControls();
    void saveOutcome_data();
    void saveOutcome();
    void checkTime_data();
    void checkTime();
    void cancel();
    void flip_data();
    void flip();
    void levelIsReadWhenItCounts();
    void secondPressDuringACommand();
    void pageTakenAwayDuringACommand();
    void pauseResumesAfterASignal();
};

void TestWeldSettingPage::roundTrip()
{
    Shown shown;
    shown.form.press("pushButton_save");
    QCOMPARE(shown.sent(), QStringList{kSave});
    QCOMPARE(shown.host.commands[0].second.toObject(), storedNode());
    QCOMPARE(shown.host.commands[0].second.toObject().size(), 18);
    QCOMPARE(shown.host.senders[0], &shown.page);
    QVERIFY2(shown.host.reads.isEmpty(), "a save does not read the node again");

    // Typed values leave as typed, and the fixed members stay 0 whatever was stored.
    shown.form.type("spinBox_laser_power", "4321");
    shown.page.loadServerConfigFromJson(QJsonValue());
    shown.form.press("pushButton_save");
    QCOMPARE(shown.host.commands[1].second.toObject().value("laser_power"), QJsonValue(4321));
    QJsonObject other = storedNode();
    other["laser_comm_type"] = 1;
    other["wire_feeder_comm_type"] = 2;
    shown.page.loadServerConfigFromJson(other);
    QCOMPARE(shown.page.saveServerConfigToJson(), (QJsonObject{{kSave, storedNode()}}));
}

void TestWeldSettingPage::badNodeChangesNothing()
{
    Shown shown;
    for (const QJsonValue& bad : {QJsonValue(), QJsonValue(QJsonValue::Undefined), QJsonValue(3),
                                  QJsonValue(QJsonArray{1}), QJsonValue("text")}) {
        shown.page.loadServerConfigFromJson(bad);
        QCOMPARE(shown.page.saveServerConfigToJson().value(kSave).toObject(), storedNode());
    }
}

void TestWeldSettingPage::storedValues_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QJsonValue>("stored");
    QTest::addColumn<QJsonValue>("saved");
    const auto row = [](const char* key, const QJsonValue& stored, const QJsonValue& saved) {
        QTest::addRow("%s %s", key, qPrintable(stored.toVariant().toString())) << key << stored << saved;
    };
    row("laser_power", 3000.7, 3000);
    row("laser_power", 1e12, 9999);
    row("laser_power", "800", 0);
    row("feedback_delay", 2000.9, 2000);
    row("pre_gas_time", 300.5, 0);
    row("manual_gas_time", 0, 1000);
    row("detection_time", 50, 100);
    row("retraction_distance", -1, 0);
    row("laser_check_out_time", 501, 500);
    row("feeder_enable", 1, false);
    row("laser_main_enable", "true", false);
}

void TestWeldSettingPage::storedValues()
{
    QFETCH(QString, key);
    QFETCH(QJsonValue, stored);
    Shown shown({{key, stored}});
    QTEST(shown.page.saveServerConfigToJson().value(kSave).toObject().value(key), "saved");
}

void TestWeldSettingPage::showing()
{
    Shown shown({{"feeder_enable", false}});
    QVERIFY(shown.page.isEnabled() && shown.editable());
    QVERIFY(shown.form.find<EnableButton>("pushButton_Retraction")->getIsEnabled());
    QVERIFY2(!shown.form.find("frame_2")->styleSheet().isEmpty(), "a page styles itself when it is shown");

    // Every show reads anew: the node, the signals and the level.
    shown.page.hide();
    shown.host.nodes[kNode] = QJsonObject{{"laser_main_enable", true}};
    shown.host.io = {{"DO", {"DO10", "DO2"}}, {"DI", {"DI3"}}};
    QSignalSpy flips(shown.form.find<EnableButton>(kSwitch), &EnableButton::enabled);
    shown.page.show();
    QVERIFY(shown.isOn() && shown.page.getMainBtnStatus() && !shown.editable());
    QVERIFY(shown.form.isEnabled(kSwitch));
    QCOMPARE(flips.size(), 0);
    QCOMPARE(shown.host.commands.size(), 0);
    const auto* outputs = shown.form.find<QComboBox>("comboBox_detection_do");
    QCOMPARE(outputs->count(), 3);
    QCOMPARE(outputs->itemText(0) + '|' + outputs->itemText(1) + '|' + outputs->itemText(2), QString("|DO2|DO10"));
    QCOMPARE(shown.form.find<QComboBox>("comboBox_feedback_di")->itemText(1), QString("DI3"));

    shown.page.hide();
    shown.host.level = 2;
    shown.page.show();
    QVERIFY(!shown.page.isEnabled() && !shown.form.isEnabled(kSwitch));
}

void TestWeldSettingPage::dependentFields()
{
    const QStringList feeder{"comboBox_wire_feeder_comm_type",     "comboBox_wire_feed_type",
                             "doubleSpinBox_max_feed_speed",       "doubleSpinBox_manual_feed_speed",
                             "doubleSpinBox_manual_retract_speed", "spinBox_wire_feedback_detection"};
    const QStringList restart{"doubleSpinBox_retraction_distance", "doubleSpinBox_retraction_speed"};
    const QStringList sticking{"comboBox_detection_do", "comboBox_feedback_di"};
    Shown shown({{"feeder_enable", false}});
    const auto all = [&shown](const QStringList& names, bool enabled) {
        return std::all_of(names.begin(), names.end(),
                           [&](const QString& name) { return shown.form.isEnabled(name) == enabled; });
    };
    QVERIFY(all(feeder, false) && all(restart, true));
    shown.form.press("pushButton_Feeder");
    QVERIFY(all(feeder, true));
    emit shown.form.find<EnableButton>("pushButton_Retraction")->enabled(false);
    QVERIFY(all(restart, false) && all(feeder, true));
    shown.page.setWireStickingPlanStatus(false);
    QVERIFY(all(sticking, false) && shown.form.isEnabled("spinBox_detection_time"));
}

void TestWeldSettingPage::hiddenControls()
{
    Shown shown;
    for (const char* name :
         {"pushButton_Retraction", "pushButton_WireSticking", "comboBox_feedback_di", "comboBox_detection_do",
          "comboBox_laser_comm_type", "comboBox_wire_feed_type", "comboBox_wire_feeder_comm_type"}) {
        QVERIFY2(!shown.form.find(name)->isVisible(), name);
    }
    QStringList shownLabels;
    for (const QLabel* label : shown.page.findChildren<QLabel*>()) {
        if (label->isVisible()) {
            shownLabels.append(label->text());
        }
    }
    for (const char* text : {"Trigger signal | DO", "Wire stick FBK| DI", "Communication mode", "Feeding mode"}) {
        QVERIFY2(!shownLabels.contains(text), text);
    }
    QVERIFY(shownLabels.contains("Gas detect  time"));
    for (const char* name : {"spinBox_laser_power", "spinBox_detection_time", "pushButton_Feeder", "pushButton_save"}) {
        QVERIFY2(shown.form.find(name)->isVisible(), name);
    }
}

void TestWeldSettingPage::saveOutcome_data()
{
    QTest::addColumn<QJsonArray>("answer");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("log");
    QTest::newRow("saved") << FakeHost::answer(kSave, 0) << "0|Saved successfully"
                           << "";
    QTest::newRow("refused") << FakeHost::answer(kSave, 5) << "2|Save failed. Please check the parameter configuration."
                             << "WeldSettingPage::checkSaveResult failed. |set_weld_setting_config| Result:|5";
    QTest::newRow("silent") << QJsonArray() << ""
                            << "WeldSettingPage::checkSaveResult failed. not found |set_weld_setting_config| Result";
}

void TestWeldSettingPage::saveOutcome()
{
    QFETCH(QJsonArray, answer);
    Shown shown;
    shown.host.answers[kSave] = answer;
    shown.form.type("spinBox_laser_power", "1234");
    shown.form.press("pushButton_save");
    QTEST(shown.host.lastMessage(), "message");
    QTEST(shown.host.logs.isEmpty() ? QString() : shown.host.logs.last().items.join('|'), "log");
    QCOMPARE(shown.form.find<QSpinBox>("spinBox_laser_power")->value(), 1234);
}

void TestWeldSettingPage::checkTime_data()
{
    QTest::addColumn<int>("detect");
    QTest::addColumn<bool>("passes");
    QTest::newRow("equal") << 200 << true;
    QTest::newRow("one less") << 199 << false;
}

void TestWeldSettingPage::checkTime()
{
    QFETCH(int, detect);
    QFETCH(bool, passes);
    Shown shown({{"feedback_delay", detect}, {"laser_check_out_time", 200}});
    shown.form.press("pushButton_save");
    QCOMPARE(shown.sent().size(), passes ? 1 : 0);
    QCOMPARE(shown.host.lastMessage() == kCheckTimeMessage, !passes);

    shown.host.forget();
    shown.form.press(kSwitch);
    QCOMPARE(shown.sent(), passes ? QStringList({kEnable + "=TRUE", kSave}) : QStringList());
    QCOMPARE(shown.isOn(), passes);
    QCOMPARE(shown.host.lastMessage(), passes ? QString() : kCheckTimeMessage);
}

void TestWeldSettingPage::cancel()
{
    Shown shown;
    shown.form.type("spinBox_laser_power", "1");
    shown.form.press("pushButton_Feeder");
    QVERIFY(!shown.form.isEnabled("doubleSpinBox_max_feed_speed"));
    shown.form.press("pushButton_cancel");
    QCOMPARE(shown.page.saveServerConfigToJson().value(kSave).toObject(), storedNode());
    QCOMPARE(shown.host.lastMessage(), QString("0|Cancel successful"));
    QVERIFY2(shown.form.isEnabled("doubleSpinBox_max_feed_speed"), "what can be edited follows what was loaded");

    QJsonObject node = storedNode();
    node["laser_main_enable"] = true;
    shown.host.nodes[kNode] = node;
    shown.form.press("pushButton_cancel");
    QVERIFY(shown.isOn() && !shown.editable());
    QCOMPARE(shown.host.commands.size(), 0);
}

void TestWeldSettingPage::flip_data()
{
    QTest::addColumn<bool>("wasOn");
    QTest::addColumn<bool>("powered");
    QTest::addColumn<QJsonArray>("answer");
    QTest::addColumn<QStringList>("sent");
    QTest::addColumn<bool>("isOn");
    QTest::addColumn<QString>("message");
    const QStringList on{kEnable + "=TRUE", kSave};
    const QStringList refused{kEnable + "=TRUE"};
    const QString powered = "2|Do not modify while powered on!";
    const QString faild = "2|Laser weld startup faild!";
    QTest::newRow("on") << false << false << FakeHost::answer(kEnable, true) << on << true << "";
    QTest::newRow("on, refused") << false << false << FakeHost::answer(kEnable, false) << refused << false << faild;
    QTest::newRow("on, number") << false << false << FakeHost::answer(kEnable, 0) << refused << false << faild;
    QTest::newRow("on, silent") << false << false << QJsonArray() << refused << false << faild;
    QTest::newRow("on, powered") << false << true << QJsonArray() << QStringList() << false << powered;
    QTest::newRow("off") << true << false << QJsonArray() << QStringList{kEnable + "=FALSE"} << false << "";
    QTest::newRow("off, powered") << true << true << QJsonArray() << QStringList() << true << powered;
}

void TestWeldSettingPage::flip()
{
    QFETCH(bool, wasOn);
    QFETCH(bool, isOn);
    QFETCH(bool, powered);
    QFETCH(QJsonArray, answer);
    Shown shown({{"laser_main_enable", wasOn}});
    shown.host.powered = powered;
    shown.host.answers[kEnable] = answer;
    QSignalSpy flips(shown.form.find<EnableButton>(kSwitch), &EnableButton::enabled);
    QSignalSpy mainEnable(&shown.page, &WeldSettingPage::setMainEnable);
    QElapsedTimer timer;
    timer.start();
    shown.form.press(kSwitch);
    // One pause before anything happens, one between the answer and its judgement.
    const bool asksToWeld = !wasOn && !powered;
    QVERIFY2(timer.elapsed() >= (asksToWeld ? 600 : 300), qPrintable(QString::number(timer.elapsed())));
    QTEST(shown.sent(), "sent");
    for (const QObject* sender : qAsConst(shown.host.senders)) {
        QCOMPARE(sender, &shown.page);
    }
    QCOMPARE(mainEnable.size(), 0);
    QTEST(shown.host.lastMessage(), "message");
    QCOMPARE(shown.isOn(), isOn);
    QCOMPARE(shown.editable(), !isOn);
    QCOMPARE(flips.size(), 1);
    if (shown.sent().size() == 2) {
        QCOMPARE(shown.host.commands[1].second.toObject().value("laser_main_enable"), QJsonValue(true));
    }
}

void TestWeldSettingPage::levelIsReadWhenItCounts()
{
    struct Press {
        const char* button;
        bool wasOn;
    };
    for (const Press& press : {Press{"pushButton_save", false}, Press{"pushButton_main_enable", false},
                               Press{"pushButton_main_enable", true}}) {
        Shown shown({{"laser_main_enable", press.wasOn}});
        shown.host.level = 2;
        QSignalSpy flips(shown.form.find<EnableButton>(kSwitch), &EnableButton::enabled);
        shown.form.press(press.button);
        QVERIFY(shown.host.commands.isEmpty() && shown.host.messages.isEmpty());
        QVERIFY(shown.isOn() == press.wasOn && !shown.page.isEnabled());
        QCOMPARE(flips.size(), press.button == kSwitch ? 1 : 0);
    }
}

void TestWeldSettingPage::secondPressDuringACommand()
{
    Shown shown;
    // The host spins the event loop in every call, and the operator presses everything.
    int presses = 0;
    const auto pressAll = [&](const QString&) {
        ++presses;
        shown.form.press("pushButton_save");
        shown.form.press("pushButton_cancel");
        const bool before = shown.isOn();
        shown.form.press(kSwitch);
        QCOMPARE(shown.isOn(), before);
    };
    shown.host.onCall = pressAll;
    shown.form.press("pushButton_save");
    QCOMPARE(shown.sent(), QStringList{kSave});
    QCOMPARE(shown.host.messages.size(), 1);
    QCOMPARE(presses, 3);

    shown.host.forget();
    shown.form.press(kSwitch);
    QCOMPARE(shown.sent(), QStringList({kEnable + "=TRUE", kSave}));
    QVERIFY(shown.isOn());

    // A show while its reads are under way sends nothing; one during a command keeps what is to be sent.
    shown.host.onCall = nullptr;
    shown.page.hide();
    shown.host.forget();
    shown.host.onCall = pressAll;
    shown.page.show();
    QCOMPARE(shown.sent(), QStringList());
    shown.host.onCall = [&shown](const QString& call) {
        if (call == "command") {
            shown.page.hide();
            shown.page.show();
        }
    };
    shown.form.type("spinBox_laser_power", "4321");
    shown.host.forget();
    shown.form.press(kSwitch);
    QCOMPARE(shown.host.reads, QStringList());
    QCOMPARE(shown.host.commands[1].second.toObject().value("laser_power"), QJsonValue(4321));

    // Afterwards everything works again.
    shown.host.onCall = nullptr;
    shown.host.forget();
    shown.form.press(kSwitch);
    QCOMPARE(shown.sent(), QStringList{kEnable + "=FALSE"});
}

void TestWeldSettingPage::pageTakenAwayDuringACommand()
{
    for (const char* button : {"pushButton_save", "pushButton_main_enable"}) {
        FakeHost host;
        host.nodes[kNode] = storedNode();
        auto* page = new WeldSettingPage(nullptr);
        page->show();
        host.onCall = [page](const QString& call) {
            if (call == "command") {
                delete page;
            }
        };
        // Called as a slot, so that no event is left with the widget that is gone.
        if (button == kSwitch) {
            page->onSwitchMain(true);
        } else {
            emit page->findChild<QAbstractButton*>(button)->clicked();
        }
        QCOMPARE(host.commands.size(), 1);
        QVERIFY(host.messages.isEmpty());
    }
}

void TestWeldSettingPage::pauseResumesAfterASignal()
{
    struct sigaction ignore {
    };
    struct sigaction previous {
    };
    ignore.sa_handler = [](int) {};
    QCOMPARE(sigaction(SIGALRM, &ignore, &previous), 0);
    const itimerval every10ms{{0, 10000}, {0, 10000}};
    setitimer(ITIMER_REAL, &every10ms, nullptr);
    QElapsedTimer timer;
    timer.start();
    blockingPause(120);
    const qint64 elapsed = timer.elapsed();
    const itimerval off{};
    setitimer(ITIMER_REAL, &off, nullptr);
    sigaction(SIGALRM, &previous, nullptr);
    QVERIFY2(elapsed >= 119, qPrintable(QString::number(elapsed)));
}

QTEST_MAIN(TestWeldSettingPage)
#include "tst_weldsettingpage.moc"
