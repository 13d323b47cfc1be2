// What the package and the controller's service say to each other, held against docs/schema.

#include "common/names.h"
#include "page/buttonmonitorpage/buttonmonitorpage.h"
#include "page/weldiopage.h"
#include "page/weldsettingpage.h"
#include "plugin/corvane.h"
#include "simulator/confignodes.h"
#include "simulator/simulatedcontroller.h"
#include "tests/fakehost.h"
#include "tests/formdriver.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QSpinBox>
#include <QtTest>

#include <functional>

using namespace sim;

namespace
{

QJsonValue parsed(const QByteArray& text)
{
    return QJsonDocument::fromJson('[' + text + ']').array().at(0);
}

QByteArray compact(const QJsonValue& value)
{
    return QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
}

QString faultOf(const QString& schema, const QJsonValue& value)
{
    const auto fault = SchemaValidator::of(schema).fault(value);
    return fault ? schema + QLatin1Char(' ') + fault->toString() : QString();
}

/// A change yields copies of one value, each wrong in one way, given what the schema says of it; copiesOf applies it at
/// every place of a value and yields copies of the whole.
using Copies = QVector<QJsonValue>;
using Change = std::function<Copies(const QJsonValue& value, const QJsonObject& rules)>;

Copies copiesOf(const QJsonValue& value, const SchemaValidator& schema, const JsonPath& path, const Change& change)
{
    Copies copies = change(value, schema.rulesAt(path));
    QJsonObject object = value.toObject();
    for (const QString& key : object.keys()) {
        for (const QJsonValue& member : copiesOf(object.value(key), schema, path / key, change)) {
            QJsonObject copy = object;
            copy.insert(key, member);
            copies.append(copy);
        }
    }
    const QJsonArray array = value.toArray();
    for (int i = 0; i < array.size(); ++i) {
        for (const QJsonValue& element : copiesOf(array.at(i), schema, path / i, change)) {
            QJsonArray copy = array;
            copy.replace(i, element);
            copies.append(copy);
        }
    }
    return copies;
}

/// Every other type than its own, and numbers that nothing here is as low, as high or as uneven as.
Copies otherValues(const QJsonValue& value, const QJsonObject& rules)
{
    const bool isFree = !rules.contains("type") && !rules.contains("const") && !rules.contains("enum");
    if (isFree) {
        return {};
    }
    Copies others;
    for (const QJsonValue& other : {QJsonValue(), QJsonValue("7x"), QJsonValue(7.5), QJsonValue(true)}) {
        const bool isFraction = other.isDouble() && rules.value("type") == QLatin1String("number");
        if (other.type() != value.type() || (other.isDouble() && !isFraction)) {
            others.append(other);
        }
    }
    if (value.isDouble()) {
        others += {-1e6, 2147483647};
    }
    return others;
}

Copies withoutOne(const QJsonValue& value, const QJsonObject& /*rules*/)
{
    Copies copies;
    const QJsonObject object = value.toObject();
    for (const QString& key : object.keys()) {
        QJsonObject copy = object;
        copy.remove(key);
        copies.append(copy);
    }
    // A row of numbers, not a list of rows.
    QJsonArray array = value.toArray();
    if (array.first().isDouble()) {
        array.removeLast();
        copies.append(array);
    }
    return copies;
}

Copies withOneMore(const QJsonValue& value, const QJsonObject& /*rules*/)
{
    QJsonObject object = value.toObject();
    QJsonArray array = value.toArray();
    object.insert("unknown_member", 0);
    array.append(1);
    return value.isObject() ? Copies{object} : array.first().isDouble() ? Copies{array} : Copies();
}

} // namespace

class TestInterface : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void controllerKnowsEveryCommand();
    void settingsAsTheyAreSent();
    void mappingAsItIsSent();
    void pendantButtons();
    void monitor();
    void commandsFitExactly_data();
    void commandsFitExactly();
    void publishedNodesHoldTheirTypes();
    void rowsBeyondTheFourthAreFree();
    void answers();

private:
    void takeCommands(FakeHost& host);
    QJsonValue answerTo(const QString& command, const QJsonValue& argument)
    {
        return m_controller->execute(names::kPlugin, {{command, argument}}).answer;
    }

    std::optional<Cell> m_cell;
    std::unique_ptr<SimulatedController> m_controller;
};

void TestInterface::initTestCase()
{
    FileFault fault;
    m_cell = loadCell(QStringLiteral(SHIPPED_CELL), &fault);
    QVERIFY2(m_cell, qPrintable(fault.message()));
    m_controller = std::make_unique<SimulatedController>(*m_cell);
}

/// Every command that the host got while its sender lives: listed, sent by the one who is listed, as its schema has it,
/// and answered by the simulated controller as the schema of answers has it.
void TestInterface::takeCommands(FakeHost& host)
{
    QVERIFY(!host.commands.isEmpty());
    for (int i = 0; i < host.commands.size(); ++i) {
        const auto& [name, argument] = host.commands.at(i);
        const auto* const known = std::find_if(std::begin(names::command::kAll), std::end(names::command::kAll),
                                               [name = name](const auto* command) { return name == command->name; });
        QVERIFY2(known != std::end(names::command::kAll), qPrintable(name));
        QCOMPARE(host.senders.at(i)->metaObject()->className(), (*known)->sender);
        QCOMPARE(faultOf(name, argument), QString());
        QCOMPARE(faultOf("result", answerTo(name, argument)), QString());
    }
    host.forget();
}

void TestInterface::controllerKnowsEveryCommand()
{
    for (const auto* command : names::command::kAll) {
        QVERIFY2(findCommand(command->name) != nullptr, command->name);
    }
    for (const QString& name : commandNames()) {
        const auto answers = SchemaValidator::of("result").rulesAt(JsonPath() / 0 / names::kPlugin / name);
        QVERIFY2(!answers.isEmpty() && !SchemaValidator::of(name).schema().isEmpty(), qPrintable(name));
    }
}

void TestInterface::settingsAsTheyAreSent()
{
    FakeHost host;
    host.nodes.insert(names::node::kWeldSetting.name, m_cell->nodes.value(names::node::kWeldSetting.name));
    WeldSettingPage page(nullptr);
    page.show();
    const FormDriver form(&page);
    const QList<QSpinBox*> numbers = page.findChildren<QSpinBox*>();
    for (const auto bound : {&QSpinBox::value, &QSpinBox::minimum, &QSpinBox::maximum}) {
        for (QSpinBox* number : numbers) {
            number->setValue((number->*bound)());
        }
        form.press("pushButton_Feeder");
        form.press("pushButton_save");
        takeCommands(host);
    }
    form.press("pushButton_main_enable");
    takeCommands(host);
    form.press("pushButton_main_enable");
    takeCommands(host);
}

/// The shipped cell's mapping keeps all rules, and every port and element in it exists.
void TestInterface::mappingAsItIsSent()
{
    FakeHost host;
    host.nodes.insert(names::node::kWeldIo.name, m_cell->nodes.value(names::node::kWeldIo.name));
    host.registers = m_cell->registers;
    for (auto list = m_cell->io.begin(); list != m_cell->io.end(); ++list) {
        host.io.insert(list.key(), list.value());
    }
    WeldioPage page(nullptr, nullptr);
    page.show();
    QVERIFY2(page.saveWeldIoConfig(), qPrintable(host.told().join('/')));
    QCOMPARE(host.commands.at(0).second, m_cell->nodes.value(names::node::kWeldIo.name));
    takeCommands(host);
}

void TestInterface::pendantButtons()
{
    for (const bool status : {false, true}) {
        FakeHost host;
        host.nodes.insert(names::node::kVirtualWelding.name, status);
        host.nodes.insert(names::node::kRedLightStatus.name, status);
        pendix::Corvane plugin(nullptr);
        plugin.init();
        const QList<pendix::PhysicalButton> buttons = host.firstButtons + host.secondButtons;
        for (const pendix::PhysicalButton& button : buttons) {
            button.handler(true);
            button.handler(false);
        }
        takeCommands(host);
    }
}

void TestInterface::monitor()
{
    FakeHost host;
    ButtonMonitorPage monitor(nullptr);
    monitor.show();
    monitor.close();
    takeCommands(host);
    m_controller->execute(names::kPlugin, {{names::command::kMonitor.name, true}});
    QCOMPARE(faultOf(names::node::kMonitorData.name, QJsonObject::fromVariantMap(m_controller->monitorValues())),
             QString());
}

void TestInterface::commandsFitExactly_data()
{
    QTest::addColumn<QJsonValue>("argument");
    const QJsonObject& nodes = m_cell->nodes;
    const auto part = [&nodes](const char* node, const QStringList& keys) {
        QJsonObject members;
        for (const QString& key : keys) {
            members.insert(key, nodes.value(QLatin1String(node)).toObject().value(key));
        }
        return members;
    };
    const QJsonObject power = part(node::kCurves, {"laser_power_node", "power_nodes_data"});
    const QJsonObject duty = part(node::kCurves, {"laser_dutycycle_node", "dutycycle_nodes_data"});
    QTest::newRow("set_weld_setting_config") << nodes.value(QLatin1String(node::kSetting));
    QTest::newRow("set_weld_io_config") << nodes.value(QLatin1String(node::kIo));
    QTest::newRow("set_weld_param_list_config") << QJsonValue(part(node::kParameters, {"LsData3"}));
    QTest::newRow("set_weld_param_match_config") << QJsonValue(part(node::kMatch, {"PowerData2"}));
    QTest::newRow("set_weld_curve_power_config") << QJsonValue(power);
    QTest::newRow("set_weld_curve_feed_config")
        << QJsonValue(part(node::kCurves, {"laser_feed_node", "feed_nodes_data"}));
    QTest::newRow("set_weld_curve_frequency_config")
        << QJsonValue(part(node::kCurves, {"laser_frequency_node", "frequency_nodes_data"}));
    QTest::newRow("set_weld_curve_dutycycle_config") << QJsonValue(duty);
    QTest::newRow("compute_curve_config") << QJsonValue(power);
    QTest::newRow("set_weld_enable") << QJsonValue("TRUE");
    QTest::newRow("set_weld_manual_gas") << QJsonValue(true);
    for (const char* name : {"set_virtual_welding", "set_weld_feed_wire", "set_weld_retract_wire", "set_weld_red_light",
                             "start_laserweld_monitor"}) {
        QTest::newRow(name) << QJsonValue(false);
    }
}

/// All members, nothing else, each of its type and within bounds: a genuine argument is done, and one in which anything
/// differs is refused.
void TestInterface::commandsFitExactly()
{
    QFETCH(QJsonValue, argument);
    const QString name = QTest::currentDataTag();
    const SchemaValidator& schema = SchemaValidator::of(name);
    const auto execution = m_controller->execute(names::kPlugin, {{name, argument}});
    QVERIFY2(execution.remarks.isEmpty(), qPrintable(execution.remarks.join('\n')));
    QCOMPARE(faultOf("result", execution.answer), QString());
    for (const Change& change : {Change(otherValues), Change(withoutOne), Change(withOneMore)}) {
        for (const QJsonValue& damaged : copiesOf(argument, schema, {}, change)) {
            QVERIFY2(!schema.fits(damaged), compact(damaged));
        }
    }
}

/// A node may have more members, and may lack some; what is read of it is of its type and within bounds.
void TestInterface::publishedNodesHoldTheirTypes()
{
    for (const QString& name : nodeNames()) {
        // Of sets and tables, which are alike, the first one.
        QJsonObject node = m_cell->nodes.value(name).toObject();
        if (node.constBegin().value().isObject()) {
            node = {{node.constBegin().key(), node.constBegin().value()}};
        }
        const SchemaValidator& schema = SchemaValidator::of(name);
        const Copies damaged = copiesOf(node, schema, {}, otherValues);
        QVERIFY(damaged.size() > 20);
        for (const QJsonValue& one : damaged) {
            QVERIFY2(!schema.fits(one), compact(one));
        }
    }
    for (const QString& name : valueNames()) {
        QVERIFY(SchemaValidator::of(name).fits(m_cell->values.value(name)) && !SchemaValidator::of(name).fits(1));
    }
}

/// The page sends all rows of a match table that hold a number, and judges the first four.
void TestInterface::rowsBeyondTheFourthAreFree()
{
    QJsonObject table = m_cell->nodes.value(QLatin1String(node::kMatch)).toObject().value("PowerData2").toObject();
    const QJsonArray rows = table.value("power_data").toArray();
    const auto faultWith = [&](const QJsonArray& fifth) {
        table.insert("power_data", QJsonArray{rows[0], rows[1], rows[2], rows[3], fifth});
        return faultOf("set_weld_param_match_config", QJsonObject{{"PowerData2", table}});
    };
    QCOMPARE(faultWith({1.5, 0, 0, -7}), QString());
    QVERIFY(faultWith({1.5, 0, 0, "7"}).contains("PowerData2.power_data[4][3]: expected a number"));
}

void TestInterface::answers()
{
    for (const char* fits : {"[]", R"([{"Other":{"set_weld_enable":{"return":1}}},{}])",
                             R"([{"Corvane":{"set_virtual_welding":{"return":"-12"},"unknown":{}}}])",
                             R"([{"Corvane":{"set_weld_io_config":{"return":false}}}])"}) {
        QVERIFY2(SchemaValidator::of("result").fits(parsed(fits)), fits);
    }
    for (const char* differs :
         {"{}", "[7]", R"([{"Corvane":3}])", R"([{"Corvane":{"set_weld_enable":true}}])",
          R"([{"Corvane":{"set_weld_enable":{"return":1}}}])", R"([{"Corvane":{"set_weld_setting_config":{}}}])",
          R"([{"Corvane":{"set_weld_param_list_config":{"return":"0"}}}])",
          R"([{"Corvane":{"set_weld_feed_wire":{"return":0.5}}}])",
          R"([{"Corvane":{"set_weld_manual_gas":{"return":2147483648}}}])",
          R"([{"Corvane":{"set_virtual_welding":{"return":"done"}}}])",
          R"([{"Corvane":{"compute_curve_config":{"return":0,"slope":2}}}])",
          R"([{"Corvane":{"compute_curve_config":{"return":0,"intercept":2}}}])"}) {
        QVERIFY2(!SchemaValidator::of("result").fits(parsed(differs)), differs);
    }
}

QTEST_MAIN(TestInterface)
#include "tst_interface.moc"
