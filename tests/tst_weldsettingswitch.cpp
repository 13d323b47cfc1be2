#include "page/pageaccess.h"
#include "tests/weldsettingform.h"

#include <QSignalSpy>
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

/// The main switch of "Weld Setup", and when level and power count.
class TestWeldSettingSwitch : public QObject
{
    Q_OBJECT

private slots:
    void flip_data();
    void flip();
    void levelIsReadWhenItCounts_data();
    void levelIsReadWhenItCounts();
    void accessOfOtherPages();
    void sendsWhatWasValidated();
};

void TestWeldSettingSwitch::flip_data()
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

void TestWeldSettingSwitch::flip()
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

void TestWeldSettingSwitch::levelIsReadWhenItCounts_data()
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

void TestWeldSettingSwitch::levelIsReadWhenItCounts()
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

void TestWeldSettingSwitch::accessOfOtherPages()
{
    Shown shown;
    const auto access = [&shown](int level, bool welding, bool meanwhile) {
        shown.page.loadServerConfigFromJson(QJsonObject{{"laser_main_enable", welding}});
        shown.host.onCall = [&shown, meanwhile](const QString&) {
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

void TestWeldSettingSwitch::sendsWhatWasValidated()
{
    for (const QString outcome : {"accepted", "refused", "thrown"}) {
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
}

QTEST_MAIN(TestWeldSettingSwitch)
#include "tst_weldsettingswitch.moc"
