#include "simulator/nodeschema.h"
#include "simulator/simulatedcontroller.h"

#include <QJsonDocument>
#include <QTimer>
#include <QtTest>

using namespace sim;

Q_DECLARE_METATYPE(sim::AnswerKind)

namespace
{

const QString kPlugin = QStringLiteral("Corvane");
const QString kSave = QStringLiteral("set_weld_setting_config");
const QString kEnable = QStringLiteral("set_weld_enable");

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

private:
    QJsonObject setting() const { return m_controller->nodes().value(QLatin1String(node::kSetting)).toObject(); }
    QJsonArray send(const QString& command, const QJsonValue& argument)
    {
        return m_controller->execute(kPlugin, {{command, argument}}).answer;
    }

    std::unique_ptr<SimulatedController> m_controller;
    QJsonObject m_changed; ///< a setting that differs from the one the controller starts with
};

void TestSimulatedController::init()
{
    FileFault fault;
    m_controller = std::make_unique<SimulatedController>(*loadCell(QStringLiteral(SHIPPED_CELL), &fault));
    m_changed = setting();
    m_changed.insert(QStringLiteral("laser_power"), 1234);
}

void TestSimulatedController::storesAndRefuses()
{
    QSignalSpy stored(m_controller.get(), &SimulatedController::nodesStored);
    QCOMPARE(compact(send(kSave, m_changed)), QByteArray(R"([{"Corvane":{"set_weld_setting_config":{"return":0}}}])"));
    QCOMPARE(m_controller->published(QStringLiteral("weld_setting_config.laser_power")), QJsonValue(1234));
    QCOMPARE(stored.size(), 1);

    QJsonObject extra = m_changed;
    extra.insert(QStringLiteral("colour"), 1);
    QJsonObject lacking = m_changed;
    lacking.remove(QStringLiteral("laser_power"));
    QJsonObject mistyped = m_changed;
    mistyped.insert(QStringLiteral("feeder_enable"), 1);
    for (const QJsonValue& bad : {QJsonValue(extra), QJsonValue(lacking), QJsonValue(mistyped), QJsonValue(5)}) {
        m_controller->setPlan(kSave, AnswerPlan());
        QCOMPARE(compact(send(kSave, bad)), QByteArray(R"([{"Corvane":{"set_weld_setting_config":{"return":1}}}])"));
        // A forced yes changes the answer, but what can't be stored is not.
        m_controller->setPlan(kSave, {AnswerKind::NumberZero, 0});
        QCOMPARE(compact(send(kSave, bad)), QByteArray(R"([{"Corvane":{"set_weld_setting_config":{"return":0}}}])"));
        QCOMPARE(setting(), m_changed);
    }
    QCOMPARE(stored.size(), 1);
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

QTEST_GUILESS_MAIN(TestSimulatedController)
#include "tst_simulatedcontroller.moc"
