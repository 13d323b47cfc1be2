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
    void switchesTheWorkMode();
    void reportsWireAndGas();
    void togglesTheRedLight();
    void statesToldMeanwhile();
    void pressedTwiceDuringItsCommand();
    void commandsThatThrow();
    void levelFallsBeforeTheLightIsSwitched();
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

void TestPendantButtons::switchesTheWorkMode()
{
    const auto answer = [](const QJsonValue& code) { return FakeHost::answer("set_virtual_welding", code); };
    const struct {
        QJsonValue status;
        QJsonArray result;
        const char* command;
        const char* message;
    } rows[] = {
        {false, answer(0), "set_virtual_welding true", "0|Switch to VirtualWelding"},
        {QJsonValue::Undefined, answer("0"), "set_virtual_welding true", "0|Switch to VirtualWelding"},
        {true, answer(0), "set_virtual_welding false", "0|Switch to RealWdlding"},
        {true, {}, "set_virtual_welding false", "0|Switch to RealWdlding"}, // silence counts as success
        {false, answer(true), "set_virtual_welding true", "2|Switch work mode failed"},
        {true, answer("3"), "set_virtual_welding false", "2|Switch work mode failed"},
    };
    for (const auto& row : rows) {
        init();
        m_host->nodes[kVirtual] = row.status;
        m_host->answers["set_virtual_welding"] = row.result;
        const QImage before = m_host->statusBar->grab().toImage();
        press("Work mode", true);
        press("Work mode", false);
        QCOMPARE(m_host->sent(), QStringList(row.command));
        QCOMPARE(m_host->senders, QVector<QObject*>{m_plugin.get()});
        QCOMPARE(m_host->told(), QStringList(row.message));
        // The item starts with the picture of real welding.
        QCOMPARE(m_host->statusBar->grab().toImage() != before, m_host->told().first().endsWith("VirtualWelding"));
    }
}

void TestPendantButtons::reportsWireAndGas()
{
    const struct {
        QString button, command, name, log;
        bool isReleased;
    } rows[] = {
        {"Wiring", "set_weld_feed_wire", "Feed wire", "Phybtn:: feed_wire failed. ", true},
        {"Retract Wire", "set_weld_retract_wire", "Retract wire", "Phybtn:: retract_wire failed. ", true},
        {"ProtectGas", "set_weld_manual_gas", "Open gas", "Phybtn:: open gas failed. ", false},
    };
    for (const auto& row : rows) {
        const QStringList sent{row.command + " true", row.command + " false"};
        const QString done = "0|" + row.name + " successfully";
        m_host->forget();
        press(row.button, true);
        press(row.button, false);
        QCOMPARE(m_host->sent(), sent.mid(0, row.isReleased ? 2 : 1));
        QCOMPARE(m_host->told(), QStringList({done, done}).mid(0, row.isReleased ? 2 : 1));
        QVERIFY(m_host->logs.isEmpty());

        m_host->forget();
        m_host->answers[row.command] = FakeHost::answer(row.command, 7);
        press(row.button, true);
        QCOMPARE(m_host->told(), QStringList("2|" + row.name + " failed. Please check logs."));
        QCOMPARE(m_host->logs.last().items, QStringList({row.log, row.command, " Result:", "7"}));

        m_host->forget();
        m_host->answers[row.command] = FakeHost::answer("another_command", 0);
        press(row.button, true);
        QVERIFY(m_host->messages.isEmpty());
        QCOMPARE(m_host->logs.last().items, QStringList({row.log + "not found ", row.command, " Result"}));
        QVERIFY(m_host->logs.last().tag.startsWith("[E|"));
    }
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

void TestPendantButtons::statesToldMeanwhile()
{
    // "+" is a press, "-" a release. The first press is what the rest is told during.
    const struct {
        const char* during;
        QString told, sent;
    } rows[] = {
        {"command", "-", "+-"},       // released
        {"command", "-+", "+-+"},     // pressed again
        {"command", "-+-+-", "+-"},   // finger off at the end
        {"command", "-+-+-+", "+-+"}, // finger on
        {"level", "-", "-"},          // let go before it was sent
        {"level", "-+", "-+"},        // let go and pressed again
    };
    for (const auto& row : rows) {
        init();
        bool isTold = false;
        m_host->onCall = [&](const QString& call) {
            if (call == row.during && !isTold) {
                isTold = true;
                for (const QChar state : row.told) {
                    press("Retract Wire", state == '+');
                }
            }
        };
        press("Retract Wire", true);
        QString sent;
        for (const auto& command : qAsConst(m_host->commands)) {
            sent += command.second.toBool() ? '+' : '-';
        }
        QCOMPARE(sent, row.sent);
        QCOMPARE(m_host->messages.size(), sent.size());
    }
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

void TestPendantButtons::pluginTakenAway()
{
    const struct {
        QString what;
        int level;
        int calls;
    } rows[] = {
        {"Work mode", 3, 4},  // status, level, command, message
        {"Red Light", 3, 4},  // level, status, level, command
        {"Wiring", 3, 3},     // level, command, message
        {"Wiring", 2, 2},     // level, message
        {"connection", 3, 1}, // status
        {"start", 3, 4},      // page, buttons, their status, status item
        {"render", 3, 1},     // the neighbour
    };
    m_plugin.reset();
    for (const auto& row : rows) {
        m_host->level = row.level;
        const auto make = [&row] {
            auto* plugin = new pendix::Corvane(nullptr);
            if (row.what != "start") {
                plugin->init();
            }
            if (row.what != "start" && row.what != "render") {
                plugin->render();
            }
            return plugin;
        };
        const auto act = [&](pendix::Corvane* plugin) {
            if (row.what == "start") {
                plugin->init();
            } else if (row.what == "render") {
                plugin->render();
            } else if (row.what == "connection") {
                emit m_host->sigNetworkConnect();
            } else {
                press(row.what, true);
            }
        };
        QVERIFY2(takeAwayInEveryCall<pendix::Corvane>(*m_host, make, act) == row.calls, qPrintable(row.what));
    }
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
