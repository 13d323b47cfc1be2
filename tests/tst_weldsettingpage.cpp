#include "page/weldsettingpage.h"
#include "tests/fakehost.h"
#include "tests/formdriver.h"
#include "tests/takenaway.h"
#include "widgets/enablebutton.h"

#include <QComboBox>
#include <QLabel>
#include <QShowEvent>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>

#include <cerrno>
#include <ctime>

namespace
{

/// What the page has slept. Its pauses cost nothing here, and a signal interrupts every one of them half way.
qint64 sleptMs = 0;
bool wasInterrupted = false;

} // namespace

extern "C" int nanosleep(const timespec* wanted, timespec* rest)
{
    const qint64 ms = wanted->tv_sec * 1000 + wanted->tv_nsec / 1000000;
    wasInterrupted = !wasInterrupted;
    const qint64 left = wasInterrupted ? ms / 2 : 0;
    *rest = {0, left * 1000000};
    sleptMs += ms - left;
    errno = EINTR;
    return wasInterrupted ? -1 : 0;
}

namespace
{

const QString kNode = "weld_setting_config";
const QString kSave = "set_weld_setting_config";
const QString kEnable = "set_weld_enable";
const QString kOn = "set_weld_enable TRUE";
const QString kOff = "set_weld_enable FALSE";
const QString kSwitch = "pushButton_main_enable";
const QString kCheckTimeMessage = "2|The detected time of the light output is later than the light output inspection "
                                  "time; saving failed!";

struct Member {
    const char* key;
    const char* widget;
    QJsonValue stored;     ///< another one in every member, so that a swapped pair shows
    QJsonValue ofFraction; ///< what becomes of the stored number and seven tenths
};

const QVector<Member>& members()
{
    static const QVector<Member> all{
        {"laser_main_enable", "pushButton_main_enable", false, false},
        {"laser_comm_type", "comboBox_laser_comm_type", 0, 0},
        {"laser_power", "spinBox_laser_power", 2111, 2111},
        {"feedback_delay", "spinBox_feedback_delay", 1112, 1112},
        {"pre_gas_time", "spinBox_pre_gas_time", 113, 0},
        {"delay_off_time", "spinBox_delay_off_time", 114, 0},
        {"detection_delay", "spinBox_detection_delay", 115, 0},
        {"manual_gas_time", "spinBox_manual_gas_time", 1116, 1000},
        {"retraction_distance", "doubleSpinBox_retraction_distance", 17, 17},
        {"retraction_speed", "doubleSpinBox_retraction_speed", 18, 18},
        {"detection_time", "spinBox_detection_time", 119, 100},
        {"feeder_enable", "pushButton_Feeder", true, false},
        {"wire_feeder_comm_type", "comboBox_wire_feeder_comm_type", 0, 0},
        {"max_feed_speed", "doubleSpinBox_max_feed_speed", 121, 121},
        {"manual_feed_speed", "doubleSpinBox_manual_feed_speed", 122, 122},
        {"manual_retract_speed", "doubleSpinBox_manual_retract_speed", 123, 123},
        {"wire_feedback_detection", "spinBox_wire_feedback_detection", 124, 0},
        {"laser_check_out_time", "spinBox_laser_check_out_time", 125, 0},
    };
    return all;
}

QJsonObject storedNode(const QJsonObject& changes = {})
{
    QJsonObject node;
    for (const Member& member : members()) {
        node.insert(member.key, member.stored);
    }
    for (auto change = changes.begin(); change != changes.end(); ++change) {
        node.insert(change.key(), change.value());
    }
    return node;
}

/// A page on the screen with a host behind it.
struct Shown {
    FakeHost host;
    WeldSettingPage page{nullptr};
    FormDriver form{&page};

    explicit Shown(const QJsonObject& changes = {})
    {
        host.nodes[kNode] = storedNode(changes);
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
    QJsonValue saved(const char* key) { return page.saveServerConfigToJson().value(kSave).toObject().value(key); }
    int power() const { return form.find<QSpinBox>("spinBox_laser_power")->value(); }
};

} // namespace

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
    void flip_data();
    void flip();
    void levelIsReadWhenItCounts_data();
    void levelIsReadWhenItCounts();
    void accessOfOtherPages();
    void sendsWhatWasValidated_data();
    void sendsWhatWasValidated();
    void secondPressDuringACommand();
    void shownDuringACommand_data();
    void shownDuringACommand();
    void pageTakenAway_data();
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
    shown.form.press("pushButton_save");
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

void TestWeldSettingPage::flip_data()
{
    QTest::addColumn<bool>("wasOn");
    QTest::addColumn<bool>("powered");
    QTest::addColumn<QJsonArray>("answer");
    QTest::addColumn<QStringList>("sent");
    QTest::addColumn<bool>("isOn");
    QTest::addColumn<QString>("message");
    const QString powered = "2|Do not modify while powered on!";
    const QString faild = "2|Laser weld startup faild!";
    QTest::newRow("on") << false << false << FakeHost::answer(kEnable, true) << QStringList{kOn, kSave} << true << "";
    QTest::newRow("on, refused") << false << false << FakeHost::answer(kEnable, false) << QStringList{kOn} << false
                                 << faild;
    QTest::newRow("on, silent") << false << false << QJsonArray() << QStringList{kOn} << false << faild;
    QTest::newRow("on, powered") << false << true << QJsonArray() << QStringList() << false << powered;
    QTest::newRow("on, detect time too short")
        << false << false << QJsonArray() << QStringList() << false << kCheckTimeMessage;
    QTest::newRow("off") << true << false << QJsonArray() << QStringList{kOff} << false << "";
    QTest::newRow("off, powered") << true << true << QJsonArray() << QStringList() << true << powered;
}

void TestWeldSettingPage::flip()
{
    QFETCH(bool, wasOn);
    QFETCH(bool, isOn);
    QFETCH(bool, powered);
    QFETCH(QString, message);
    const bool isTooShort = message == kCheckTimeMessage;
    Shown shown({{"laser_main_enable", wasOn}, {"feedback_delay", 200}, {"laser_check_out_time", 200 + isTooShort}});
    shown.host.powered = powered;
    QFETCH(QJsonArray, answer);
    shown.host.answers[kEnable] = answer;
    QSignalSpy flips(shown.form.find<EnableButton>(kSwitch), &EnableButton::enabled);
    QVector<qint64> slept;
    sleptMs = 0;
    shown.host.onCall = [&](const QString&) { slept.append(sleptMs); };
    shown.form.press(kSwitch);
    // One pause before anything happens, one between the answer of a switch-on and its judgement.
    QCOMPARE(slept.first(), 300);
    QCOMPARE(slept.last(), wasOn || powered || isTooShort ? 300 : 600);
    QTEST(shown.host.sent(), "sent");
    QCOMPARE(shown.host.senders.count(&shown.page), shown.host.commands.size());
    QCOMPARE(shown.host.lastMessage(), message);
    QCOMPARE(shown.isOn(), isOn);
    QCOMPARE(shown.editable(), !isOn);
    QCOMPARE(flips.size(), 1);
    if (shown.host.sent().size() == 2) {
        QCOMPARE(shown.host.commands[1].second.toObject().value("laser_main_enable"), QJsonValue(true));
    }
}

void TestWeldSettingPage::levelIsReadWhenItCounts_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<bool>("wasOn");
    QTest::addColumn<QStringList>("calls");
    QTest::addColumn<int>("fallsIn");
    QTest::addColumn<QStringList>("sent");
    const QString save = "pushButton_save";
    const QStringList ofSave{"level", "command"};
    const QStringList ofOff{"power", "level", "command"};
    const QStringList ofOn{"power", "level", "command", "level", "command"};
    QTest::newRow("save") << save << false << ofSave << 0 << QStringList{};
    QTest::newRow("off, during the power question") << kSwitch << true << ofOff << 0 << QStringList{};
    QTest::newRow("on, during the power question") << kSwitch << false << ofOn << 0 << QStringList{};
    QTest::newRow("on, during the enable command") << kSwitch << false << ofOn << 2 << QStringList{kOn};
    QTest::newRow("on, too late to matter") << kSwitch << false << ofOn << 4 << QStringList{kOn, kSave};
}

void TestWeldSettingPage::levelIsReadWhenItCounts()
{
    QFETCH(QString, button);
    QFETCH(bool, wasOn);
    QFETCH(QStringList, calls);
    QFETCH(int, fallsIn);
    QFETCH(QStringList, sent);
    Shown shown({{"laser_main_enable", wasOn}});
    QStringList called;
    shown.host.onCall = [&](const QString& call) {
        if (called.size() == fallsIn) {
            shown.host.level = 2;
        }
        called.append(call);
    };
    shown.form.press(button);
    QCOMPARE(called, calls.mid(0, called.size()));
    QCOMPARE(shown.host.sent(), sent);
    QVERIFY(shown.host.messages.isEmpty());
    const bool isSettled = called == calls;
    QCOMPARE(shown.page.isEnabled(), isSettled);
    // The controller welds once it has agreed to, whatever becomes of the settings.
    QCOMPARE(shown.isOn(), sent.contains(kOn) || wasOn);
    QCOMPARE(shown.host.logs.size(), sent.contains(kOn) && !isSettled ? 1 : 0);
    QVERIFY(shown.host.logs.isEmpty() || shown.host.logs.first().tag.startsWith("[W|"));
}

void TestWeldSettingPage::accessOfOtherPages()
{
    Shown shown;
    const auto access = [&shown](int level, bool welding, bool meanwhile) {
        shown.page.loadServerConfigFromJson(QJsonObject{{"laser_main_enable", welding}});
        shown.host.onCall = [&](const QString&) {
            shown.page.loadServerConfigFromJson(QJsonObject{{"laser_main_enable", meanwhile}});
        };
        shown.host.level = level;
        return accessOf(&shown.page);
    };
    QVERIFY(access(3, false, false) == PageAccess::Editable && access(3, true, true) == PageAccess::ReadOnly);
    QVERIFY(access(2, false, false) == PageAccess::Locked && access(2, true, true) == PageAccess::Locked);
    // The switch as it stands once the host has answered.
    QVERIFY(access(3, false, true) == PageAccess::ReadOnly && access(3, true, false) == PageAccess::Editable);
    QVERIFY(accessOf(nullptr) == PageAccess::Editable);
}

void TestWeldSettingPage::sendsWhatWasValidated_data()
{
    QTest::addColumn<QString>("outcome");
    QTest::newRow("accepted") << "accepted";
    QTest::newRow("refused") << "refused";
    QTest::newRow("thrown") << "thrown";
}

void TestWeldSettingPage::sendsWhatWasValidated()
{
    QFETCH(QString, outcome);
    Shown shown({{"feedback_delay", 300}, {"laser_check_out_time", 200}});
    shown.host.answers[kEnable] = FakeHost::answer(kEnable, outcome == "accepted");
    shown.host.onCall = [&](const QString& call) {
        // The operator edits while the controller thinks, as a finger would and as an owner of the page could.
        if (call == "command" || (call == "level" && !shown.host.commands.isEmpty())) {
            QVERIFY(!shown.editable());
            shown.form.find<QSpinBox>("spinBox_feedback_delay")->setValue(7);
        }
        if (call == "command" && outcome == "thrown") {
            throw 1;
        }
    };
    try {
        shown.page.onSwitchMain(true);
        QVERIFY(outcome != "thrown");
    } catch (int) {
        QCOMPARE(outcome, QString("thrown"));
    }
    QCOMPARE(shown.isOn(), outcome == "accepted");
    QCOMPARE(shown.editable(), outcome != "accepted");
    if (outcome == "accepted") {
        const QJsonObject expected =
            storedNode({{"laser_main_enable", true}, {"feedback_delay", 300}, {"laser_check_out_time", 200}});
        QCOMPARE(shown.host.commands.value(1).second.toObject(), expected);
    }
    shown.host.onCall = nullptr;
    shown.host.forget();
    shown.page.onSwitchMain(false);
    QCOMPARE(shown.host.sent(), QStringList{kOff});
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

void TestWeldSettingPage::pageTakenAway_data()
{
    QTest::addColumn<QString>("what");
    QTest::addColumn<int>("calls");
    QTest::newRow("save") << "save" << 3;           // level, command, message
    QTest::newRow("cancel") << "cancel" << 3;       // node, level, message
    QTest::newRow("show") << "show" << 4;           // two lists, node, level
    QTest::newRow("on") << "on" << 5;               // power, level, command, level, command
    QTest::newRow("on, refused") << "refused" << 4; // ..., message
    QTest::newRow("off") << "off" << 3;
    QTest::newRow("powered") << "powered" << 2;       // power, message
    QTest::newRow("check time") << "check time" << 3; // power, level, message
}

void TestWeldSettingPage::pageTakenAway()
{
    QFETCH(QString, what);
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
    QTEST(takeAwayInEveryCall<WeldSettingPage>(host, make, act), "calls");
}

QTEST_MAIN(TestWeldSettingPage)
#include "tst_weldsettingpage.moc"
