#include "simulator/confignodes.h"
#include "simulator/simulatedcontroller.h"

#include <QJsonDocument>
#include <QTimer>
#include <QtTest>

using namespace sim;

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

/// The answer to a save with that code.
QByteArray saved(const char* code)
{
    return R"([{"Corvane":{"set_weld_setting_config":{"return":)" + QByteArray(code) + "}}}]";
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
    void forcedAnswers();
    void withoutConnection();
    void storesPoints();
    void slowAnswer();
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
    int code(const QString& command, const QJsonValue& argument)
    {
        return send(command, argument).at(0)[kPlugin][command]["return"].toInt(-1);
    }
    void setInNode(const char* member, const QJsonValue& value)
    {
        QJsonObject nodes = m_controller->nodes();
        QJsonObject changed = setting();
        changed.insert(QLatin1String(member), value);
        nodes.insert(QLatin1String(node::kSetting), changed);
        m_controller->setNodes(nodes);
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
    m_changed.insert("laser_power", 1234);
}

void TestSimulatedController::storesAndRefuses()
{
    QSignalSpy stored(m_controller.get(), &SimulatedController::nodesStored);
    const auto done = m_controller->execute(kPlugin, {{"make_coffee", true}, {kSave, m_changed}});
    QCOMPARE(compact(done.answer), saved("0"));
    QCOMPARE(done.remarks, QStringList("unknown command make_coffee"));
    QCOMPARE(m_controller->published("weld_setting_config.laser_power"), QJsonValue(1234));
    QVERIFY(m_controller->published("weld_setting_config.none.deeper").isUndefined());
    QJsonObject bad = m_changed;
    bad.insert("laser_power", 10000);
    const auto refused = m_controller->execute(kPlugin, {{kSave, bad}});
    QCOMPARE(compact(refused.answer), saved("1"));
    QVERIFY(refused.remarks.value(0).endsWith("executed: laser_power: expected a whole number from 0 to 9999"));
    // A forced yes changes the answer, but what can't be stored is not.
    m_controller->setPlan(kSave, {AnswerKind::NumberZero, 0});
    QCOMPARE(compact(send(kSave, bad)), saved("0"));
    QCOMPARE(setting(), m_changed);
    QCOMPARE(stored.size(), 1);
}

void TestSimulatedController::keepsTheOtherSets()
{
    QJsonObject expected = m_controller->nodes().value(node::kParameters).toObject();
    QJsonObject set = expected.value("LsData1").toObject();
    set.insert("LsDataID", "LsData7");
    QVERIFY(!expected.contains("LsData7"));
    expected.insert("LsData7", set);
    QCOMPARE(code("set_weld_param_list_config", QJsonObject{{"LsData7", set}}), 0);
    QCOMPARE(code("set_weld_param_list_config", QJsonObject{{"LsData8", set}}), 1);
    QCOMPARE(m_controller->nodes().value(node::kParameters).toObject(), expected);
}

void TestSimulatedController::fitsALine()
{
    const QString compute = "compute_curve_config";
    const QString save = "set_weld_curve_feed_config";
    const auto curve = [](int count, const QJsonArray& nodes) {
        return QJsonObject{{"laser_feed_node", count}, {"feed_nodes_data", nodes}};
    };
    const auto refusal = [&](const QString& command, const QJsonValue& argument) {
        return m_controller->execute(kPlugin, {{command, argument}}).remarks.value(0).section(": ", 1);
    };
    const QJsonArray nodes = {QJsonArray{1, 10}, QJsonArray{3, 30}, QJsonArray{5, 20}, QJsonArray{7, 60}};
    const QByteArray line = R"({"Corvane":{"compute_curve_config":{"intercept":2,"return":0,"slope":7}}}])";
    const std::pair<AnswerKind, QByteArray> answers[] = {
        {AnswerKind::Huge, R"([{"Corvane":{"compute_curve_config":{"intercept":-1e+300,"return":0,"slope":1e+300}}}])"},
        {AnswerKind::TwoAnswers,
         R"([{"Corvane":{"compute_curve_config":{"intercept":5,"return":0,"slope":15}}},)" + line},
        {AnswerKind::Proper, "[" + line}};
    for (const auto& [kind, answer] : answers) {
        m_controller->setPlan(compute, {kind, 0});
        QCOMPARE(compact(send(compute, curve(4, nodes))), answer);
    }
    // Rounded, the mean of three such ports is another.
    const QJsonArray same = {QJsonArray{65535.99, 1}, QJsonArray{65535.99, 2}, QJsonArray{65535.99, 4}};
    QCOMPARE(refusal(compute, curve(3, same)), QString("all nodes have the same port value"));
    QCOMPARE(refusal(compute, curve(2, {QJsonArray{0, 1e300}, QJsonArray{1, 2}})),
             QString("feed_nodes_data[0][1]: expected a whole number from 0 to 65535"));
    QJsonObject expected = m_controller->nodes().value(node::kCurves).toObject();
    QVERIFY(expected.value("feed_nodes_data") != nodes);
    expected.insert("feed_nodes_data", nodes);
    QCOMPARE(code(save, curve(4, nodes)), 0);
    for (const QString& command : {compute, save}) {
        QCOMPARE(refusal(command, curve(4, same)), QString("the number of nodes is 4, and there are 3"));
    }
    QCOMPARE(m_controller->nodes().value(node::kCurves).toObject(), expected);
}

void TestSimulatedController::enableKeepsTheNodeInStep()
{
    for (const char* word : {"TRUE", "true", "FALSE"}) {
        const bool isKnown = QString(word).isUpper();
        const bool before = m_controller->weldEnabled();
        QCOMPARE(send(kEnable, word).at(0)[kPlugin][kEnable]["return"], QJsonValue(isKnown));
        QCOMPARE(m_controller->weldEnabled(), isKnown ? !before : before);
        QCOMPARE(setting().value(node::kMainEnable), QJsonValue(m_controller->weldEnabled()));
    }
}

void TestSimulatedController::forcedAnswers()
{
    struct Row {
        AnswerKind kind;
        QByteArray answer;
        bool stores;
    };
    const Row rows[] = {
        {AnswerKind::NumberZero, saved("0"), true},
        {AnswerKind::OtherNumber, saved("7"), false},
        {AnswerKind::TextTwo, saved("\"2\""), false},
        {AnswerKind::True, saved("true"), true},
        {AnswerKind::False, saved("false"), false},
        {AnswerKind::Empty, "[]", false},
        {AnswerKind::OtherFirst, R"([{"Corvane":{"get_weld_status":{"return":1}}},)" + saved("0").mid(1), true},
        {AnswerKind::TwoAnswers, saved("7").replace("}}}]", "}}},") + saved("0").mid(1), true},
        {AnswerKind::NoMembers, R"([{"Corvane":{"set_weld_setting_config":{}}}])", false},
        {AnswerKind::Huge, saved("2147483647"), false},
        {AnswerKind::Malformed,
         R"([7,"text",{"Corvane":5},{"Corvane":{"set_weld_setting_config":3}},)"
         R"({"Corvane":{"set_weld_setting_config":{"result":0}}}])",
         false},
    };
    for (const Row& row : rows) {
        init();
        const QJsonObject before = setting();
        m_controller->setPlan(kSave, {row.kind, 0});
        QCOMPARE(compact(send(kSave, m_changed)), row.answer);
        QCOMPARE(setting(), row.stores ? m_changed : before);
    }
}

void TestSimulatedController::withoutConnection()
{
    QSignalSpy changes(m_controller.get(), &SimulatedController::connectionChanged);
    const QJsonObject before = setting();
    m_controller->setConnected(false);
    m_controller->setConnected(false);
    QCOMPARE(changes.size(), 1);
    QVERIFY(m_controller->published(node::kSetting).isUndefined());
    QVERIFY(m_controller->published(node::kVirtualWelding).isUndefined());
    QCOMPARE(send(kSave, m_changed), QJsonArray());
    m_controller->setConnected(true);
    QCOMPARE(m_controller->published(node::kSetting), QJsonValue(before));
}

void TestSimulatedController::storesPoints()
{
    QSignalSpy changes(m_controller.get(), &SimulatedController::pointsChanged);
    QVector<RobotPoint> expected = m_controller->points();
    // A new one, and another position, tool and work object for one that is there, in its old place.
    m_controller->setPosition({1, 2, 3.25, 4, 5, 6});
    QCOMPARE(m_controller->addPoint("p1", false, "weld_head", "table_left"), QString());
    expected.append({"p1", {1, 2, 3.25, 4, 5, 6}, "weld_head", "table_left"});
    m_controller->setPosition({1e9, -1e9, 0.125, 361, -361, 7});
    QCOMPARE(m_controller->addPoint("Park", true, "seam_sensor", "fixture_a"), QString());
    expected[1] = {"Park", {999999, -999999, 0.125, 360, -360, 7}, "seam_sensor", "fixture_a"};
    const auto refuse = [this](const QString& name, const char* tool, const char* wobj, const char* reason) {
        const QString said = m_controller->addPoint(name, name != "Home", tool, wobj);
        QVERIFY2(said.contains(reason), qPrintable(said));
    };
    refuse("Home", "tool0", "wobj0", "\"Home\" is there already");
    for (const QString& name : {QString(), QString(" \t"), QString("Home "), QString(QChar(0xd800))}) {
        refuse(name, "tool0", "wobj0", "is no name");
    }
    refuse("new", "", "wobj0", "no tool \"\"");
    refuse("new", "tool0", "tool0", "no work object \"tool0\"");
    m_controller->setConnected(false);
    refuse("new", "tool0", "wobj0", "no connection");
    QVERIFY(m_controller->points() == expected);
    QCOMPARE(changes, QList<QVariantList>({{expected.size() - 1}, {1}}));
    // What is no number is within reach, too.
    m_controller->setPosition({0, 0, 0, 0, 0, qQNaN()});
    QVERIFY(qAbs(m_controller->position().c) <= 360);
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

void TestSimulatedController::commandsWithABoolean()
{
    const auto states = [this] {
        const Wire wire = m_controller->consumables().wire();
        return QList<bool>{m_controller->published(node::kVirtualWelding).toBool(),
                           m_controller->published(node::kRedLight).toBool(), wire == Wire::Feeding,
                           wire == Wire::Retracting, m_controller->monitoring()};
    };
    QSignalSpy stored(m_controller.get(), &SimulatedController::nodesStored);
    const QStringList commands = {"set_virtual_welding", "set_weld_red_light", kFeed, kRetract, kMonitor};
    for (int i = 0; i < commands.size(); ++i) {
        for (const bool on : {false, true, false}) {
            QList<bool> expected = states();
            expected[i] = on;
            QCOMPARE(code(commands.at(i), on), 0);
            QCOMPARE(states(), expected);
        }
    }
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
    // It moves, in small steps around what the node says, and stands while the clock stands.
    const auto power = [this] { return m_controller->monitorValues().value("get_laser_power").toDouble(); };
    const double first = power();
    QCOMPARE(power(), first);
    double last = first;
    double furthest = 0;
    for (int i = 0; i < 300; ++i, m_now += 50) {
        const double now = power();
        QVERIFY(qAbs(now - 3000) <= 60 && qAbs(now - last) < 20);
        furthest = qMax(furthest, qAbs(now - first));
        last = now;
    }
    QVERIFY(furthest > 0);
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
