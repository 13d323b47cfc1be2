#include "tests/takenaway.h"
#include "tests/weldsettingform.h"

#include <QComboBox>
#include <QLabel>
#include <QShowEvent>
#include <QSignalSpy>
#include <QTest>

#include <ctime>

/// The page's pauses cost nothing here.
extern "C" int nanosleep(const timespec* /*wanted*/, timespec* /*rest*/)
{
    return 0;
}

class TestWeldSettingPage : public QObject
{
    Q_OBJECT

private slots:
    void everyMemberHasItsWidget();
    void showing();
    void dependentFields();
    void hiddenControls();
    void saveOutcome_data();
    void saveOutcome();
    void cancel();
    void secondPressDuringACommand();
    void shownDuringACommand_data();
    void shownDuringACommand();
    void pageTakenAway();
};

void TestWeldSettingPage::everyMemberHasItsWidget()
{
    Shown shown;
    for (const Member& member : members()) {
        const auto* widget = shown.form.find(member.widget);
        if (auto* button = qobject_cast<const EnableButton*>(widget)) {
            QCOMPARE(QJsonValue(const_cast<EnableButton*>(button)->getIsEnabled()), member.stored);
        } else {
            const QByteArray property = qobject_cast<const QSpinBox*>(widget) != nullptr ? "value" : "currentIndex";
            QVERIFY2(widget->property(property) == member.stored.toVariant().toInt(), member.key);
        }
    }
    shown.form.press("pushButton_save");
    QCOMPARE(shown.host.sent(), QStringList{kSave});
    QCOMPARE(shown.host.commands[0].second.toObject(), storedNode());
    QCOMPARE(shown.host.senders[0], &shown.page);
    QVERIFY2(shown.host.reads.isEmpty(), "a save does not read the node again");

    for (const QJsonValue& bad : {QJsonValue(), QJsonValue(QJsonValue::Undefined), QJsonValue(QJsonArray{1})}) {
        shown.page.loadServerConfigFromJson(bad);
        QCOMPARE(shown.page.saveServerConfigToJson().value(kSave).toObject(), storedNode());
    }

    QJsonObject fractions{{"laser_comm_type", 1}, {"wire_feeder_comm_type", 2}};
    for (const Member& member : members()) {
        if (!fractions.contains(member.key)) {
            fractions.insert(member.key, member.stored.isBool() ? QJsonValue(1) : member.stored.toDouble() + 0.7);
        }
    }
    shown.page.loadServerConfigFromJson(fractions);
    for (const Member& member : members()) {
        QVERIFY2(shown.saved(member.key) == member.ofFraction, member.key);
    }
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
    QCOMPARE(shown.form.find<QComboBox>("comboBox_detection_do")->findText("DO10"), 2);
    QCOMPARE(shown.form.find<QComboBox>("comboBox_feedback_di")->itemText(1), QString("DI3"));

    // The window system restores a window: what was edited stays, the level counts.
    shown.form.find<QSpinBox>("spinBox_laser_power")->setValue(77);
    shown.host.level = 2;
    shown.host.forget();
    restore(&shown.page);
    QVERIFY(shown.power() == 77 && !shown.host.reads.contains(kNode));
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
    const QList<QLabel*> labels = shown.page.findChildren<QLabel*>();
    for (const QLabel* label : labels) {
        const QStringList unused{"Trigger signal | DO", "Wire stick FBK| DI", "Communication mode", "Feeding mode"};
        QVERIFY2(label->isVisible() != unused.contains(label->text()), qPrintable(label->text()));
    }
}

void TestWeldSettingPage::saveOutcome_data()
{
    QTest::addColumn<int>("detect");
    QTest::addColumn<QJsonArray>("answer");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("log");
    const QString log = "WeldSettingPage::checkSaveResult failed. ";
    const QJsonArray done = FakeHost::answer(kSave, 0);
    QTest::newRow("saved, the detect time is the check out time") << 200 << done << "0|Saved successfully" << QString();
    QTest::newRow("detect time too short") << 199 << done << kCheckTimeMessage << QString();
    QTest::newRow("refused") << 200 << FakeHost::answer(kSave, 5)
                             << "2|Save failed. Please check the parameter configuration."
                             << log + "|set_weld_setting_config| Result:|5";
    QTest::newRow("silent") << 200 << QJsonArray() << QString() << log + "not found |set_weld_setting_config| Result";
}

void TestWeldSettingPage::saveOutcome()
{
    QFETCH(int, detect);
    QFETCH(QJsonArray, answer);
    Shown shown({{"feedback_delay", detect}, {"laser_check_out_time", 200}});
    shown.host.answers[kSave] = answer;
    shown.form.type("spinBox_laser_power", "1234");
    // Not committed, and too low: the field shows what is saved instead.
    auto* gas = shown.form.find<QSpinBox>("spinBox_manual_gas_time");
    gas->selectAll();
    QTest::keyClicks(gas, "50");
    shown.form.press("pushButton_save");
    QCOMPARE(gas->text(), QString("1116"));
    QCOMPARE(shown.host.sent().size(), detect < 200 ? 0 : 1);
    QTEST(shown.host.lastMessage(), "message");
    QTEST(shown.host.logs.isEmpty() ? QString() : shown.host.logs.last().items.join('|'), "log");
    QCOMPARE(shown.power(), 1234);
}

void TestWeldSettingPage::cancel()
{
    Shown shown;
    shown.form.type("spinBox_laser_power", "1");
    shown.form.press("pushButton_Feeder");
    shown.form.press("pushButton_cancel");
    QCOMPARE(shown.page.saveServerConfigToJson().value(kSave).toObject(), storedNode());
    QCOMPARE(shown.host.lastMessage(), QString("0|Cancel successful"));
    QVERIFY2(shown.form.isEnabled("doubleSpinBox_max_feed_speed"), "what can be edited follows what was loaded");

    shown.host.nodes[kNode] = storedNode({{"laser_main_enable", true}});
    shown.form.press("pushButton_cancel");
    QVERIFY(shown.isOn() && !shown.editable());
    QCOMPARE(shown.host.commands.size(), 0);
}

void TestWeldSettingPage::secondPressDuringACommand()
{
    Shown shown;
    // The host spins the event loop in every call, and the operator presses everything.
    const auto pressAll = [&](const QString&) {
        shown.form.press("pushButton_save");
        shown.form.press("pushButton_cancel");
        const bool before = shown.isOn();
        shown.form.press(kSwitch);
        QCOMPARE(shown.isOn(), before);
    };
    shown.host.onCall = pressAll;
    shown.form.press("pushButton_save");
    QCOMPARE(shown.host.sent(), QStringList{kSave});
    QCOMPARE(shown.host.messages.size(), 1);

    shown.host.forget();
    shown.form.press(kSwitch);
    QCOMPARE(shown.host.sent(), QStringList({kOn, kSave}));
    QVERIFY(shown.isOn());

    shown.host.nodes[kNode] = storedNode({{"laser_main_enable", true}});
    shown.page.hide();
    shown.host.forget();
    shown.page.show();
    QCOMPARE(shown.host.sent(), QStringList());

    shown.host.onCall = nullptr;
    shown.form.press(kSwitch);
    QCOMPARE(shown.host.sent(), QStringList{kOff});
}

void TestWeldSettingPage::shownDuringACommand_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QJsonArray>("answer");
    QTest::addColumn<int>("power");
    // 4321 is typed before the press, 555 what the controller publishes in the meantime.
    QTest::newRow("saved") << "pushButton_save" << FakeHost::answer(kSave, 0) << 555;
    QTest::newRow("refused") << "pushButton_save" << FakeHost::answer(kSave, 1) << 4321;
    QTest::newRow("silent") << "pushButton_save" << QJsonArray() << 4321;
    QTest::newRow("switched on") << kSwitch << FakeHost::answer(kSave, 0) << 555;
}

void TestWeldSettingPage::shownDuringACommand()
{
    QFETCH(QString, button);
    Shown shown;
    QFETCH(QJsonArray, answer);
    shown.host.answers[kSave] = answer;
    shown.form.type("spinBox_laser_power", "4321");
    int readsMeanwhile = -1;
    shown.host.onCall = [&](const QString& call) {
        if (call != "command" || readsMeanwhile >= 0) {
            return;
        }
        shown.host.io["DO"] = QStringList{"DO7"};
        shown.host.nodes[kNode] = storedNode({{"laser_power", 555}, {"laser_main_enable", button == kSwitch}});
        shown.host.forget();
        shown.page.hide();
        shown.page.show();
        readsMeanwhile = shown.host.reads.size();
        // The level falls when nothing asks for it any more but the show.
        shown.host.level = button == kSwitch ? 3 : 2;
    };
    shown.form.press(button);
    QCOMPARE(readsMeanwhile, 0);
    if (button == kSwitch) {
        QCOMPARE(shown.host.commands.last().second.toObject().value("laser_power"), QJsonValue(4321));
        QVERIFY(shown.isOn() && !shown.editable());
    }
    QTEST(shown.power(), "power");
    QCOMPARE(shown.form.find<QComboBox>("comboBox_detection_do")->itemText(1), QString("DO7"));
    QCOMPARE(shown.page.isEnabled(), button == kSwitch);
}

void TestWeldSettingPage::pageTakenAway()
{
    const QPair<QString, int> rows[] = {
        {"save", 3},                       // level, command, message
        {"cancel", 3},                     // node, level, message
        {"show", 4},                       // two lists, node, level
        {"on", 5},                         // power, level, command, level, command
        {"refused", 4},                    // ..., message
        {"off", 3},        {"powered", 2}, // power, message
        {"check time", 3},                 // power, level, message
    };
    for (const auto& row : rows) {
        const QString& what = row.first;
        FakeHost host;
        host.nodes[kNode] = storedNode({{"laser_check_out_time", what == "check time" ? 500 : 0},
                                        {"feedback_delay", 400},
                                        {"laser_main_enable", what == "off"}});
        host.powered = what == "powered";
        host.answers[kEnable] = FakeHost::answer(kEnable, what != "refused");
        const auto make = [] {
            auto* page = new WeldSettingPage(nullptr);
            page->show();
            return page;
        };
        // Called as slots and handlers, so that no event is left with the widget that is gone.
        const auto act = [&what](WeldSettingPage* page) {
            QShowEvent show;
            if (what == "show") {
                QCoreApplication::sendEvent(page, &show);
            } else if (what == "save" || what == "cancel") {
                emit page->findChild<QAbstractButton*>("pushButton_" + what)->clicked();
            } else {
                page->onSwitchMain(what != "off");
            }
        };
        QVERIFY2(takeAwayInEveryCall<WeldSettingPage>(host, make, act) == row.second, qPrintable(what));
    }
}

QTEST_MAIN(TestWeldSettingPage)
#include "tst_weldsettingpage.moc"
