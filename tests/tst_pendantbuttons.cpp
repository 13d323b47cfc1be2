#include "plugin/corvane.h"
#include "tests/fakehost.h"
#include "tests/takenaway.h"

#include <QFile>
#include <QTest>

#include <memory>
#include <stdexcept>

namespace
{

const QString kVirtual = QStringLiteral("laser_weld_data.virtual_welding_status");
const QString kRedLight = QStringLiteral("laser_weld_data.weld_redlight_status");

} // namespace

class TestPendantButtons : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void describesTheButtons();
    void refusesBelowLevelThree();
    void switchesTheWorkMode_data();
    void switchesTheWorkMode();
    void reportsWireAndGas_data();
    void reportsWireAndGas();
    void togglesTheRedLight();
    void statesToldMeanwhile_data();
    void statesToldMeanwhile();
    void pressedTwiceDuringItsCommand();
    void commandsThatThrow();
    void levelFallsBeforeTheLightIsSwitched();
    void pluginTakenAway_data();
    void pluginTakenAway();
    void survivesTheHostsChanges();

private:
    void press(const QString& text, bool down);

    std::unique_ptr<FakeHost> m_host;
    std::unique_ptr<pendix::Corvane> m_plugin;
};

void TestPendantButtons::init()
{
    m_plugin.reset();
    m_host = std::make_unique<FakeHost>();
    m_plugin = std::make_unique<pendix::Corvane>(nullptr);
    m_plugin->init();
    m_host->forget();
}

void TestPendantButtons::press(const QString& text, bool down)
{
    for (const pendix::PhysicalButton& button : m_host->firstButtons + m_host->secondButtons) {
        if (button.text == text) {
            button.handler(down);
            return;
        }
    }
    QFAIL(qPrintable("no button " + text));
}

void TestPendantButtons::describesTheButtons()
{
    QStringList lists;
    for (const auto* list : {&m_host->firstButtons, &m_host->secondButtons}) {
        for (const pendix::PhysicalButton& button : *list) {
            lists.append(button.text + '|' + button.pressedImage.section('/', -1));
            QCOMPARE(button.releasedImage, QString(button.pressedImage).replace("Pressed", "Unpressed"));
            QVERIFY(QFile::exists(button.pressedImage) && QFile::exists(button.releasedImage));
        }
        lists.append("-");
    }
    QCOMPARE(lists, QStringList({"Work mode|switchModePressed.png", "Wiring|feedWirePressed.png",
                                 "Red Light|redLightPressed.png", "-", "ProtectGas|gasPressed.png",
                                 "Retract Wire|pullWirePressed.png", "-"}));
}

void TestPendantButtons::refusesBelowLevelThree()
{
    m_host->level = 2;
    const QString refusal = "1|Insufficient user permissions!";
    const QMap<QString, int> refusals{
        {"Work mode", 1}, {"Red Light", 1}, {"ProtectGas", 1}, {"Wiring", 2}, {"Retract Wire", 2}};
    for (auto row = refusals.begin(); row != refusals.end(); ++row) {
        m_host->forget();
        press(row.key(), true);
        QCOMPARE(m_host->told(), QStringList(refusal));
        press(row.key(), false);
        QCOMPARE(m_host->told().count(refusal), row.value());
        QVERIFY(m_host->commands.isEmpty());
    }
}

void TestPendantButtons::switchesTheWorkMode_data()
{
    QTest::addColumn<QJsonValue>("status");
    QTest::addColumn<QJsonArray>("result");
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("message");
    const auto answer = [](const QJsonValue& code) { return FakeHost::answer("set_virtual_welding", code); };
    const QString toVirtual = "set_virtual_welding true";
    const QString toReal = "set_virtual_welding false";
    const QString failed = "2|Switch work mode failed";
    const QJsonValue absent(QJsonValue::Undefined);
    QTest::newRow("real") << QJsonValue(false) << answer(0) << toVirtual << "0|Switch to VirtualWelding";
    QTest::newRow("absent counts as real") << absent << answer("0") << toVirtual << "0|Switch to VirtualWelding";
    QTest::newRow("virtual") << QJsonValue(true) << answer(0) << toReal << "0|Switch to RealWdlding";
    QTest::newRow("silence counts as success")
        << QJsonValue(true) << QJsonArray() << toReal << "0|Switch to RealWdlding";
    QTest::newRow("refused with true") << QJsonValue(false) << answer(true) << toVirtual << failed;
    QTest::newRow("refused with a text") << QJsonValue(true) << answer("3") << toReal << failed;
}

void TestPendantButtons::switchesTheWorkMode()
{
    QFETCH(QJsonValue, status);
    QFETCH(QJsonArray, result);
    QFETCH(QString, command);
    QFETCH(QString, message);
    m_host->nodes[kVirtual] = status;
    m_host->answers["set_virtual_welding"] = result;
    const QImage before = m_host->statusBar->grab().toImage();
    press("Work mode", true);
    QCOMPARE(m_host->sent(), QStringList(command));
    QCOMPARE(m_host->senders, QVector<QObject*>{m_plugin.get()});
    QCOMPARE(m_host->told(), QStringList(message));
    // The item starts with the picture of real welding.
    QCOMPARE(m_host->statusBar->grab().toImage() != before, message.endsWith("VirtualWelding"));
    press("Work mode", false);
    QCOMPARE(m_host->commands.size(), 1);
    QCOMPARE(m_host->messages.size(), 1);
}

void TestPendantButtons::reportsWireAndGas_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("log");
    QTest::addColumn<bool>("released");
    QTest::newRow("feed") << "Wiring"
                          << "set_weld_feed_wire"
                          << "Feed wire"
                          << "Phybtn:: feed_wire failed. " << true;
    QTest::newRow("retract") << "Retract Wire"
                             << "set_weld_retract_wire"
                             << "Retract wire"
                             << "Phybtn:: retract_wire failed. " << true;
    QTest::newRow("gas") << "ProtectGas"
                         << "set_weld_manual_gas"
                         << "Open gas"
                         << "Phybtn:: open gas failed. " << false;
}

void TestPendantButtons::reportsWireAndGas()
{
    QFETCH(QString, button);
    QFETCH(QString, command);
    QFETCH(QString, name);
    QFETCH(QString, log);
    QFETCH(bool, released);
    const QString done = "0|" + name + " successfully";
    press(button, true);
    press(button, false);
    QCOMPARE(m_host->sent(),
             released ? QStringList({command + " true", command + " false"}) : QStringList(command + " true"));
    QCOMPARE(m_host->told(), released ? QStringList({done, done}) : QStringList(done));
    QVERIFY(m_host->logs.isEmpty());

    m_host->forget();
    m_host->answers[command] = FakeHost::answer(command, 7);
    press(button, true);
    QCOMPARE(m_host->told(), QStringList("2|" + name + " failed. Please check logs."));
    QCOMPARE(m_host->logs.last().items, QStringList({log, command, " Result:", "7"}));

    m_host->forget();
    m_host->answers[command] = FakeHost::answer("another_command", 0);
    press(button, true);
    QVERIFY(m_host->messages.isEmpty());
    QCOMPARE(m_host->logs.last().items, QStringList({log + "not found ", command, " Result"}));
    QVERIFY(m_host->logs.last().tag.startsWith("[E|"));
}

void TestPendantButtons::togglesTheRedLight()
{
    for (const bool on : {false, true}) {
        m_host->nodes[kRedLight] = on;
        press("Red Light", true);
        press("Red Light", false);
    }
    QCOMPARE(m_host->sent(), QStringList({"set_weld_red_light true", "set_weld_red_light false"}));
    QVERIFY(m_host->messages.isEmpty());
}

void TestPendantButtons::statesToldMeanwhile_data()
{
    QTest::addColumn<QString>("during");
    QTest::addColumn<QString>("told");
    QTest::addColumn<QString>("sent");
    // "+" is a press, "-" a release. The first press is what the rest is told during.
    QTest::newRow("released") << "command"
                              << "-"
                              << "+-";
    QTest::newRow("pressed again") << "command"
                                   << "-+"
                                   << "+-+";
    QTest::newRow("three presses, finger off") << "command"
                                               << "-+-+-"
                                               << "+-";
    QTest::newRow("three presses, finger on") << "command"
                                              << "-+-+-+"
                                              << "+-+";
    QTest::newRow("let go before it was sent") << "level"
                                               << "-"
                                               << "-";
    QTest::newRow("let go and pressed again") << "level"
                                              << "-+"
                                              << "-+";
}

void TestPendantButtons::statesToldMeanwhile()
{
    QFETCH(QString, during);
    QFETCH(QString, told);
    bool isTold = false;
    m_host->onCall = [&](const QString& call) {
        if (call == during && !isTold) {
            isTold = true;
            for (const QChar state : qAsConst(told)) {
                press("Retract Wire", state == '+');
            }
        }
    };
    press("Retract Wire", true);
    QString sent;
    for (const auto& command : qAsConst(m_host->commands)) {
        sent += command.second.toBool() ? '+' : '-';
    }
    QTEST(sent, "sent");
    QCOMPARE(m_host->messages.size(), sent.size());
}

void TestPendantButtons::pressedTwiceDuringItsCommand()
{
    // The other wire key has a turn of its own.
    m_host->onCall = [&](const QString& call) {
        if (call == "command" && m_host->commands.size() == 1) {
            press("Retract Wire", true);
            press("Retract Wire", false);
        }
    };
    press("Wiring", true);
    QCOMPARE(m_host->sent(),
             QStringList({"set_weld_feed_wire true", "set_weld_retract_wire true", "set_weld_retract_wire false"}));
    m_host->forget();

    m_host->onCall = [&](const QString& call) {
        if (call == "command" && m_host->commands.size() < 3) {
            press("Work mode", true);
        }
    };
    press("Work mode", true);
    QCOMPARE(m_host->commands.size(), 1);
}

void TestPendantButtons::commandsThatThrow()
{
    for (const bool isReleasedMeanwhile : {false, true}) {
        m_host->forget();
        m_host->onCall = [&](const QString& call) {
            if (call == "command" && m_host->commands.size() == 1) {
                if (isReleasedMeanwhile) {
                    press("Wiring", false);
                }
                throw std::runtime_error("line cut");
            }
        };
        try {
            press("Wiring", true);
            QVERIFY2(isReleasedMeanwhile, "who called learns of the exception");
        } catch (const std::runtime_error&) {
            press("Wiring", false);
        }
        QCOMPARE(m_host->sent(), QStringList({"set_weld_feed_wire true", "set_weld_feed_wire false"}));
    }
    m_host->forget();
    m_host->onCall = [](const QString& call) {
        if (call == "command") {
            throw std::runtime_error("line cut");
        }
    };
    QVERIFY_EXCEPTION_THROWN(press("ProtectGas", true), std::runtime_error);
    QVERIFY_EXCEPTION_THROWN(press("ProtectGas", true), std::runtime_error);
}

void TestPendantButtons::levelFallsBeforeTheLightIsSwitched()
{
    m_host->onCall = [&](const QString& call) { m_host->level = call == "read" ? 2 : m_host->level; };
    press("Red Light", true);
    QVERIFY(m_host->commands.isEmpty());
    QCOMPARE(m_host->told(), QStringList("1|Insufficient user permissions!"));
}

void TestPendantButtons::pluginTakenAway_data()
{
    QTest::addColumn<QString>("what");
    QTest::addColumn<int>("level");
    QTest::addColumn<int>("calls");
    QTest::newRow("work mode") << "Work mode" << 3 << 4;   // status, level, command, message
    QTest::newRow("red light") << "Red Light" << 3 << 4;   // level, status, level, command
    QTest::newRow("wire feed") << "Wiring" << 3 << 3;      // level, command, message
    QTest::newRow("refused") << "Wiring" << 2 << 2;        // level, message
    QTest::newRow("connection") << "connection" << 3 << 1; // status
    QTest::newRow("start") << "start" << 3 << 4;           // page, buttons, their status, status item
    QTest::newRow("render") << "render" << 3 << 1;         // the neighbour
}

void TestPendantButtons::pluginTakenAway()
{
    QFETCH(QString, what);
    QFETCH(int, level);
    m_plugin.reset();
    m_host->level = level;
    const auto make = [&what] {
        auto* plugin = new pendix::Corvane(nullptr);
        if (what != "start") {
            plugin->init();
        }
        if (what != "start" && what != "render") {
            plugin->render();
        }
        return plugin;
    };
    const auto act = [&](pendix::Corvane* plugin) {
        if (what == "start") {
            plugin->init();
        } else if (what == "render") {
            plugin->render();
        } else if (what == "connection") {
            emit m_host->sigNetworkConnect();
        } else {
            press(what, true);
        }
    };
    QTEST(takeAwayInEveryCall<pendix::Corvane>(*m_host, make, act), "calls");
}

void TestPendantButtons::survivesTheHostsChanges()
{
    // The host drops its records, in one of which the handler is that runs, and its widgets while a command is under
    // way.
    m_host->onCall = [&](const QString& call) {
        if (call == "command") {
            m_host->firstButtons.clear();
            delete m_host->statusBar;
        }
    };
    m_host->firstButtons.first().handler(true);
    QCOMPARE(m_host->told(), QStringList("0|Switch to VirtualWelding"));
    init();
    m_host->onCall = [&](const QString&) { m_host->secondButtons.clear(); };
    m_host->secondButtons.last().handler(true);
    QCOMPARE(m_host->told(), QStringList("0|Retract wire successfully"));

    // It calls a handler that it kept, when the plug-in object is gone.
    init();
    const pendix::PhysicalButton gas = m_host->secondButtons.first();
    m_plugin.reset();
    gas.handler(true);
    QVERIFY(m_host->commands.isEmpty());
}

QTEST_MAIN(TestPendantButtons)
#include "tst_pendantbuttons.moc"
