#include "simulator/confignodes.h"
#include "simulator/simulatedcontroller.h"

#include <QJsonDocument>
#include <QTimer>
#include <QtTest>

using namespace sim;

using StateReader = std::function<bool(const SimulatedController&)>;

Q_DECLARE_METATYPE(sim::AnswerKind)
Q_DECLARE_METATYPE(StateReader)

namespace
{

const QString kPlugin = QStringLiteral("Corvane");
const QString kSave = QStringLiteral("set_weld_setting_config");
const QString kEnable = QStringLiteral("set_weld_enable");
const QString kFeed = QStringLiteral("set_weld_feed_wire");
const QString kRetract = QStringLiteral("set_weld_retract_wire");
const QString kGas = QStringLiteral("set_weld_manual_gas");
const QString kMonitor = QStringLiteral("start_laserweld_monitor");
using Wire = Consumables::Wire;

QByteArray compact(const QJsonArray& array)
{
    return QJsonDocument(array).toJson(QJsonDocument::Compact);
}

} // namespace

class TestSimulatedController : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void storesAndRefuses();
    void keepsTheOtherSets();
    void fitsALine();
    void enableKeepsTheNodeInStep();
    void forcedAnswers_data();
    void forcedAnswers();
    void unknownCommand();
    void withoutConnection();
    void storesPoints();
    void refusesPoints_data();
    void refusesPoints();
    void staysWithinReach();
    void slowAnswer();
    void commandsWithABoolean_data();
    void commandsWithABoolean();
    void wireRunsAndStands();
    void wireStopsWithTheLine();
    void gasClosesByItself();
    void quickReleaseComesSecond();
    void monitorStream();

private:
    QJsonObject setting() const { return m_controller->nodes().value(QLatin1String(node::kSetting)).toObject(); }
    QJsonArray send(const QString& command, const QJsonValue& argument)
    {
        return m_controller->execute(kPlugin, {{command, argument}}).answer;
    }

    void setInNode(const char* member, const QJsonValue& value)
    {
        QJsonObject nodes = m_controller->nodes();
        QJsonObject changed = setting();
        changed.insert(QLatin1String(member), value);
        nodes.insert(QLatin1String(node::kSetting), changed);
        m_controller->setNodes(nodes);
    }
    int code(const QString& command, const QJsonValue& argument)
    {
        const QJsonObject answer = send(command, argument).at(0).toObject().value(kPlugin).toObject();
        return answer.value(command).toObject().value(QStringLiteral("return")).toInt(-1);
    }

    qint64 m_now = 1000; ///< the controller's clock
    std::unique_ptr<SimulatedController> m_controller;
    QJsonObject m_changed; ///< a setting that differs from the one the controller starts with
};

void TestSimulatedController::init()
{
    FileFault fault;
    m_controller = std::make_unique<SimulatedController>(*loadCell(QStringLiteral(SHIPPED_CELL), &fault));
    m_controller->setClock([this] { return m_now; });
    m_changed = setting();
    m_changed.insert(QStringLiteral("laser_power"), 1234);
}

void TestSimulatedController::storesAndRefuses()
{
    QSignalSpy stored(m_controller.get(), &SimulatedController::nodesStored);
    QCOMPARE(compact(send(kSave, m_changed)), QByteArray(R"([{"Corvane":{"set_weld_setting_config":{"return":0}}}])"));
    QCOMPARE(m_controller->published(QStringLiteral("weld_setting_config.laser_power")), QJsonValue(1234));
    QCOMPARE(stored.size(), 1);

    QJsonObject bad = m_changed;
    bad.insert(QStringLiteral("laser_power"), 10000);
    m_controller->setPlan(kSave, AnswerPlan());
    const auto refused = m_controller->execute(kPlugin, {{kSave, bad}});
    QCOMPARE(compact(refused.answer), QByteArray(R"([{"Corvane":{"set_weld_setting_config":{"return":1}}}])"));
    QCOMPARE(refused.remarks, QStringList("set_weld_setting_config not executed: laser_power: expected a whole number "
                                          "from 0 to 9999"));
    // A forced yes changes the answer, but what can't be stored is not.
    m_controller->setPlan(kSave, {AnswerKind::NumberZero, 0});
    QCOMPARE(compact(send(kSave, bad)), QByteArray(R"([{"Corvane":{"set_weld_setting_config":{"return":0}}}])"));
    QCOMPARE(setting(), m_changed);
    QCOMPARE(stored.size(), 1);
}

void TestSimulatedController::keepsTheOtherSets()
{
    const QString name = QStringLiteral("LsData7");
    QJsonObject expected = m_controller->nodes().value(QLatin1String(node::kParameters)).toObject();
    QVERIFY(!expected.contains(name));
    QJsonObject set = expected.value(QStringLiteral("LsData1")).toObject();
    set.insert(QStringLiteral("LsDataID"), name);
    expected.insert(name, set);
    QCOMPARE(code(QStringLiteral("set_weld_param_list_config"), QJsonObject{{name, set}}), 0);
    QCOMPARE(m_controller->nodes().value(QLatin1String(node::kParameters)).toObject(), expected);
}

void TestSimulatedController::fitsALine()
{
    const QString compute = QStringLiteral("compute_curve_config");
    const QString save = QStringLiteral("set_weld_curve_feed_config");
    const auto curve = [](int count, const QJsonArray& nodes) {
        return QJsonObject{{QStringLiteral("laser_feed_node"), count}, {QStringLiteral("feed_nodes_data"), nodes}};
    };
    const QJsonArray nodes = {QJsonArray{1, 10}, QJsonArray{2, 30}, QJsonArray{3, 35}, QJsonArray{6, 85}};
    const QJsonObject before = m_controller->nodes();
    const QJsonObject answer = send(compute, curve(4, nodes)).at(0)[kPlugin][compute].toObject();
    QVERIFY(qFuzzyCompare(answer.value(QStringLiteral("slope")).toDouble(), 205.0 / 14));
    QVERIFY(qFuzzyCompare(answer.value(QStringLiteral("intercept")).toDouble(), 40 - 3 * 205.0 / 14));
    QCOMPARE(answer.value(QStringLiteral("return")), QJsonValue(0));
    QCOMPARE(m_controller->nodes(), before);
    QCOMPARE(code(save, curve(4, nodes)), 0);
    QCOMPARE(m_controller->published(QStringLiteral("weld_curve_config.feed_nodes_data")), QJsonValue(nodes));
    QVERIFY(!m_controller->published(QStringLiteral("weld_curve_config.power_nodes_data")).isUndefined());
    for (const QString& command : {compute, save}) {
        QCOMPARE(code(command, curve(3, nodes)), 1);
    }
    QCOMPARE(code(compute, curve(2, {QJsonArray{5, 1}, QJsonArray{5, 2}})), 1);
}

void TestSimulatedController::enableKeepsTheNodeInStep()
{
    QCOMPARE(compact(send(kEnable, QStringLiteral("TRUE"))),
             QByteArray(R"([{"Corvane":{"set_weld_enable":{"return":true}}}])"));
    QVERIFY(m_controller->weldEnabled());
    QCOMPARE(setting().value(QLatin1String(node::kMainEnable)), QJsonValue(true));
    for (const QJsonValue& bad : {QJsonValue(QStringLiteral("true")), QJsonValue(false)}) {
        QCOMPARE(compact(send(kEnable, bad)), QByteArray(R"([{"Corvane":{"set_weld_enable":{"return":false}}}])"));
        QVERIFY(m_controller->weldEnabled());
    }
    send(kEnable, QStringLiteral("FALSE"));
    QVERIFY(!m_controller->weldEnabled());
    QCOMPARE(setting().value(QLatin1String(node::kMainEnable)), QJsonValue(false));
}

void TestSimulatedController::forcedAnswers_data()
{
    QTest::addColumn<AnswerKind>("kind");
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<bool>("stores");
    const auto code = [](const char* value) {
        return "[{\"Corvane\":{\"set_weld_setting_config\":{\"return\":" + QByteArray(value) + "}}}]";
    };
    QTest::newRow("number 0") << AnswerKind::NumberZero << code("0") << true;
    QTest::newRow("other number") << AnswerKind::OtherNumber << code("7") << false;
    QTest::newRow("text") << AnswerKind::TextTwo << code("\"2\"") << false;
    QTest::newRow("true") << AnswerKind::True << code("true") << true;
    QTest::newRow("false") << AnswerKind::False << code("false") << false;
    QTest::newRow("empty") << AnswerKind::Empty << QByteArray("[]") << false;
    QTest::newRow("other first") << AnswerKind::OtherFirst
                                 << "[{\"Corvane\":{\"get_weld_status\":{\"return\":1}}}," + code("0").mid(1) << true;
    QTest::newRow("malformed") << AnswerKind::Malformed
                               << QByteArray(R"([7,"text",{"Corvane":5},{"Corvane":{"set_weld_setting_config":3}},)"
                                             R"({"Corvane":{"set_weld_setting_config":{"result":0}}}])")
                               << false;
}

void TestSimulatedController::forcedAnswers()
{
    QFETCH(AnswerKind, kind);
    QFETCH(QByteArray, answer);
    QFETCH(bool, stores);
    const QJsonObject before = setting();
    m_controller->setPlan(kSave, {kind, 0});
    QCOMPARE(compact(send(kSave, m_changed)), answer);
    QCOMPARE(setting(), stores ? m_changed : before);
}

void TestSimulatedController::unknownCommand()
{
    const QJsonObject both = {{QStringLiteral("make_coffee"), true}, {kSave, m_changed}};
    const SimulatedController::Execution execution = m_controller->execute(kPlugin, both);
    QCOMPARE(compact(execution.answer), QByteArray(R"([{"Corvane":{"set_weld_setting_config":{"return":0}}}])"));
    QCOMPARE(execution.remarks, QStringList(QStringLiteral("unknown command make_coffee")));
}

void TestSimulatedController::withoutConnection()
{
    QSignalSpy changes(m_controller.get(), &SimulatedController::connectionChanged);
    m_controller->setConnected(false);
    m_controller->setConnected(false);
    QCOMPARE(changes.size(), 1);
    QVERIFY(m_controller->published(QLatin1String(node::kSetting)).isUndefined());
    QVERIFY(m_controller->published(QLatin1String(node::kVirtualWelding)).isUndefined());
    const QJsonObject before = setting();
    QCOMPARE(send(kSave, m_changed), QJsonArray());
    QCOMPARE(setting(), before);
    m_controller->setConnected(true);
    QCOMPARE(m_controller->published(QLatin1String(node::kSetting)), QJsonValue(before));
    QVERIFY(m_controller->published(QStringLiteral("weld_setting_config.none.deeper")).isUndefined());
}

void TestSimulatedController::storesPoints()
{
    QSignalSpy changes(m_controller.get(), &SimulatedController::pointsChanged);
    QVector<RobotPoint> expected = m_controller->points();
    const int before = expected.size();
    const Pose first = {1, 2, 3.25, 4, 5, 6};
    m_controller->setPosition(first);
    QCOMPARE(m_controller->addPoint("p1", false, "weld_head", "table_left"), QString());
    expected.append({"p1", first, "weld_head", "table_left"});
    QVERIFY(m_controller->points() == expected);
    // Another position, tool and work object for one that is there, in its old place.
    const Pose second = {-1, -2, -3, -4, -5, -6};
    m_controller->setPosition(second);
    QCOMPARE(m_controller->addPoint("Park", true, "seam_sensor", "fixture_a"), QString());
    expected[1] = {"Park", second, "seam_sensor", "fixture_a"};
    QVERIFY(m_controller->points() == expected);
    QCOMPARE(changes, QList<QVariantList>({{before}, {1}}));
}

void TestSimulatedController::refusesPoints_data()
{
    QTest::addColumn<QStringList>("arguments"); // name, tool, work object
    QTest::addColumn<bool>("overwrite");
    QTest::addColumn<bool>("connected");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char* name, const QStringList& arguments, bool overwrite, const char* reason) {
        QTest::newRow(name) << arguments << overwrite << (qstrcmp(name, "line down") != 0) << QString(reason);
    };
    row("line down", {"new", "tool0", "wobj0"}, true, "no connection");
    row("there already", {"Home", "tool0", "wobj0"}, false, "\"Home\" is there already");
    row("empty", {"", "tool0", "wobj0"}, true, "is no name");
    row("blank", {" \t", "tool0", "wobj0"}, true, "is no name");
    row("blank at the end", {"Home ", "tool0", "wobj0"}, true, "is no name");
    row("half a character", {QString(QChar(0xd800)), "tool0", "wobj0"}, true, "is no name");
    row("no tool", {"new", "", "wobj0"}, true, "no tool \"\"");
    row("unknown work object", {"new", "tool0", "tool0"}, true, "no work object \"tool0\"");
}

void TestSimulatedController::refusesPoints()
{
    QFETCH(QStringList, arguments);
    QFETCH(bool, overwrite);
    QFETCH(bool, connected);
    QFETCH(QString, reason);
    QSignalSpy changes(m_controller.get(), &SimulatedController::pointsChanged);
    const QVector<RobotPoint> before = m_controller->points();
    m_controller->setConnected(connected);
    const QString said = m_controller->addPoint(arguments.at(0), overwrite, arguments.at(1), arguments.at(2));
    QVERIFY2(said.contains(reason), qPrintable(said));
    QVERIFY(m_controller->points() == before && changes.isEmpty());
}

void TestSimulatedController::staysWithinReach()
{
    QSignalSpy moves(m_controller.get(), &SimulatedController::positionChanged);
    m_controller->setPosition({1e9, -1e9, 0.125, 361, -361, qQNaN()});
    const Pose reached = m_controller->position();
    QVERIFY(reached == (Pose{999999, -999999, 0.125, 360, -360, reached.c}) && qAbs(reached.c) <= 360);
    m_controller->setPosition(reached);
    QCOMPARE(moves.size(), 1);
}

void TestSimulatedController::slowAnswer()
{
    m_controller->setPlan(kSave, {AnswerKind::Proper, 50});
    bool spun = false;
    QTimer::singleShot(0, this, [&spun] { spun = true; });
    QVERIFY(!send(kSave, m_changed).isEmpty());
    QVERIFY(spun);
    // A line that goes down in the middle ends the wait at once, with nothing done.
    const QJsonObject before = setting();
    m_changed.insert(QStringLiteral("laser_power"), 1);
    m_controller->setPlan(kSave, {AnswerKind::Proper, 60000});
    QTimer::singleShot(10, this, [this] { m_controller->setConnected(false); });
    QCOMPARE(send(kSave, m_changed), QJsonArray());
    QCOMPARE(setting(), before);
}

void TestSimulatedController::commandsWithABoolean_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<StateReader>("state");
    const auto row = [](const QString& command, const StateReader& state) {
        QTest::newRow(qPrintable(command)) << command << state;
    };
    using Controller = const SimulatedController&;
    row("set_virtual_welding", [](Controller c) { return c.published(node::kVirtualWelding).toBool(); });
    row("set_weld_red_light", [](Controller c) { return c.published(node::kRedLight).toBool(); });
    row(kFeed, [](Controller c) { return c.consumables().wire() == Wire::Feeding; });
    row(kRetract, [](Controller c) { return c.consumables().wire() == Wire::Retracting; });
    row(kMonitor, [](Controller c) { return c.monitoring(); });
}

void TestSimulatedController::commandsWithABoolean()
{
    QFETCH(QString, command);
    QFETCH(StateReader, state);
    QSignalSpy stored(m_controller.get(), &SimulatedController::nodesStored);
    for (const bool on : {false, true, false}) {
        QCOMPARE(code(command, on), 0);
        QCOMPARE(state(*m_controller), on);
    }
    QCOMPARE(code(command, QStringLiteral("TRUE")), 1);
    QVERIFY(!state(*m_controller));
    QCOMPARE(stored.size(), 0);
}

void TestSimulatedController::wireRunsAndStands()
{
    const Consumables& wire = m_controller->consumables();
    setInNode("manual_feed_speed", 12);
    setInNode("manual_retract_speed", 4);
    code(kFeed, true);
    m_now += 2500;
    QCOMPARE(wire.wirePosition(), 30.0);
    // A release of the other key changes nothing, the same key pressed again nothing that was fed.
    code(kRetract, false);
    QCOMPARE(code(kFeed, true), 0);
    m_now += 500;
    code(kFeed, false);
    m_now += 9000;
    QCOMPARE(wire.wirePosition(), 36.0);
    code(kRetract, true);
    m_now += 10000;
    QCOMPARE(wire.wirePosition(), -4.0);
    // Both at once: stopped, and neither release sets it going again.
    QCOMPARE(code(kFeed, true), 2);
    QCOMPARE(code(kRetract, false), 0);
    m_now += 1000;
    QVERIFY(wire.wire() == Wire::Stopped && wire.wirePosition() == -4.0 && wire.wireSpeed() == 0.0);
    // Speeds that no feeder has, and none at all.
    setInNode("manual_feed_speed", -5);
    code(kFeed, true);
    QCOMPARE(wire.wireSpeed(), 0.0);
    setInNode("manual_feed_speed", 1e300);
    code(kFeed, true);
    QCOMPARE(wire.wireSpeed(), Consumables::kFastestWire);
    m_controller->setNodes({});
    QCOMPARE(code(kFeed, true), 2);
    QCOMPARE(code(kFeed, false), 0);
    QCOMPARE(wire.wire(), Wire::Stopped);
}

void TestSimulatedController::wireStopsWithTheLine()
{
    QSignalSpy cuts(m_controller.get(), &SimulatedController::wireCutOff);
    const Consumables& wire = m_controller->consumables();
    code(kRetract, true);
    m_now += 1000;
    m_controller->setConnected(false);
    const double where = wire.wirePosition();
    m_now += 1000;
    QCOMPARE(code(kRetract, false), -1);
    m_controller->setConnected(true);
    QVERIFY(wire.wire() == Wire::Stopped && where < 0 && wire.wirePosition() == where);
    m_controller->setConnected(false);
    QCOMPARE(cuts.size(), 1);
}

void TestSimulatedController::gasClosesByItself()
{
    const Consumables& gas = m_controller->consumables();
    setInNode("manual_gas_time", 5000);
    code(kGas, true);
    m_now += 4000;
    QCOMPARE(gas.gasLeft(), 1000);
    code(kGas, true);
    m_now += 4999;
    QCOMPARE(gas.gasLeft(), 1);
    m_now += 5;
    QCOMPARE(gas.gasLeft(), 0);
    setInNode("manual_gas_time", 1e300);
    code(kGas, true);
    QCOMPARE(gas.gasLeft(), static_cast<qint64>(Consumables::kLongestGasMs));
}

void TestSimulatedController::quickReleaseComesSecond()
{
    // The key comes up while its press is still waited for, and is answered without delay.
    m_controller->setPlan(kFeed, {AnswerKind::Proper, 60});
    QList<bool> order;
    connect(m_controller.get(), &SimulatedController::dataChanged, this,
            [&] { order.append(m_controller->consumables().wire() == Wire::Feeding); });
    QTimer::singleShot(0, this, [this] {
        m_controller->setPlan(kFeed, AnswerPlan());
        QCOMPARE(code(kFeed, false), 0);
    });
    QCOMPARE(code(kFeed, true), 0);
    QCOMPARE(order, QList<bool>({true, false}));
}

void TestSimulatedController::monitorStream()
{
    QSignalSpy changes(m_controller.get(), &SimulatedController::monitoringChanged);
    m_controller->setValue(node::kVirtualWelding, false);
    QCOMPARE(m_controller->monitorValues(), QVariantMap());
    code(kMonitor, true);
    code(kMonitor, true);
    QCOMPARE(changes, QList<QVariantList>({{true}}));
    const QVariantMap first = m_controller->monitorValues();
    QCOMPARE(first.keys(), QStringList({"get_laser_dutycycle", "get_laser_frequency", "get_laser_power",
                                        "get_laser_weldspeed", "get_laser_wirespeed"}));
    QCOMPARE(m_controller->monitorValues(), first);
    double last = first.value("get_laser_power").toDouble();
    bool moves = false;
    for (int i = 0; i < 300; ++i, m_now += 50) {
        const QVariantMap values = m_controller->monitorValues();
        const double power = values.value("get_laser_power").toDouble();
        QVERIFY(qAbs(power - 3000) <= 60 && qAbs(power - last) < 20);
        QVERIFY(values.value("get_laser_dutycycle").toDouble() <= 100);
        moves = moves || power != last;
        last = power;
    }
    QVERIFY(moves);
    m_controller->setValue(node::kVirtualWelding, true);
    code(kFeed, true);
    const QVariantMap dark = m_controller->monitorValues();
    QCOMPARE(dark.value("get_laser_power").toDouble(), 0.0);
    QVERIFY(dark.value("get_laser_wirespeed").toDouble() > 0 && dark.value("get_laser_weldspeed").toDouble() > 0);
    m_controller->setConnected(false);
    QCOMPARE(m_controller->monitorValues(), QVariantMap());
}

QTEST_GUILESS_MAIN(TestSimulatedController)
#include "tst_simulatedcontroller.moc"
