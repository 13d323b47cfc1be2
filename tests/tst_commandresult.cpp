#include "common/commandresult.h"
#include "common/controller.h"
#include "common/logline.h"
#include "common/operatormessage.h"
#include "tests/fakehost.h"

#include <QJsonDocument>
#include <QTest>

namespace
{

QJsonArray parse(const QByteArray& json)
{
    QJsonParseError error{};
    QJsonArray array = QJsonDocument::fromJson(json, &error).array();
    if (error.error != QJsonParseError::NoError) {
        qFatal("bad test data: %s", json.constData());
    }
    return array;
}

} // namespace

class TestCommandResult : public QObject
{
    Q_OBJECT

private slots:
    void outcome_data();
    void outcome();
    void returnInt_data();
    void returnInt();
    void enableBool_data();
    void enableBool();
    void logIdiom();
    void permission();
};

void TestCommandResult::outcome_data()
{
    QTest::addColumn<QByteArray>("result");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("log");
    const auto row = [](const char* name, const char* result, const char* message, const char* log) {
        QTest::newRow(name) << QByteArray(result) << message << log;
    };
    const auto done = [&row](const char* name, const char* result) { row(name, result, "0|done", ""); };
    done("success", R"([{"Corvane":{"set_x":{"return":0}}}])");
    done("text counts as 0", R"([{"Corvane":{"set_x":{"return":"2"}}}])");
    done("boolean counts as 0", R"([{"Corvane":{"set_x":{"return":true}}}])");
    done("first answer counts", R"([{"Corvane":{"set_x":{"return":0}}},{"Corvane":{"set_x":{"return":3}}}])");
    done("malformed elements are skipped",
         R"([1,null,[],{"Corvane":4},{"Corvane":{"set_x":5}},{"Corvane":{"set_x":{}}},
            {"Corvane":{"set_x":{"return":0}}}])");
    row("second element answers", R"([{"Corvane":{"other":{"return":0}}},{"Corvane":{"set_x":{"return":3}}}])",
        "2|failed", "x failed. |set_x| Result:|3");
    row("refused below 0", R"([{"Corvane":{"set_x":{"return":-1}}}])", "2|failed", "x failed. |set_x| Result:|-1");
    row("silent controller", "[]", "", "x failed. not found |set_x| Result");
    row("other plug-in", R"([{"Other":{"set_x":{"return":0}}}])", "", "x failed. not found |set_x| Result");
}

void TestCommandResult::outcome()
{
    QFETCH(QByteArray, result);
    FakeHost host;
    reportOutcome(outcomeOf(parse(result), "set_x"), {"done", "failed", "x failed. "}, "set_x");
    QTEST(host.lastMessage(), "message");
    QVERIFY(host.messages.size() <= 1);
    QTEST(host.logs.isEmpty() ? QString() : host.logs.last().items.join('|'), "log");
    QVERIFY(host.logs.isEmpty() || host.logs.last().tag.startsWith("[E|"));
}

void TestCommandResult::returnInt_data()
{
    QTest::addColumn<QByteArray>("result");
    QTest::addColumn<int>("code");
    const auto row = [](const char* name, const char* code, int expected) {
        QTest::newRow(name) << QByteArray(R"([{"Corvane":{"set_virtual_welding":{"return":)") + code + "}}}]"
                            << expected;
    };
    row("truncated", "1.9", 1);
    row("truncated toward zero", "-1.9", -1);
    row("beyond int", "1e300", std::numeric_limits<int>::max());
    row("text", "\"12\"", 12);
    row("no number", "\"abc\"", 0);
    row("true", "true", 1);
    row("null", "null", 0);
    QTest::newRow("empty") << QByteArray("[]") << 0;
    QTest::newRow("first element only") << QByteArray(R"([7,{"Corvane":{"set_virtual_welding":{"return":5}}}])") << 0;
}

void TestCommandResult::returnInt()
{
    QFETCH(QByteArray, result);
    QTEST(extractReturnInt(parse(result)), "code");
}

void TestCommandResult::enableBool_data()
{
    QTest::addColumn<QByteArray>("result");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("true") << QByteArray(R"([{"Corvane":{"set_weld_enable":{"return":true}}}])") << true;
    QTest::newRow("false") << QByteArray(R"([{"Corvane":{"set_weld_enable":{"return":false}}}])") << false;
    QTest::newRow("number") << QByteArray(R"([{"Corvane":{"set_weld_enable":{"return":1}}}])") << false;
    QTest::newRow("text") << QByteArray(R"([{"Corvane":{"set_weld_enable":{"return":"true"}}}])") << false;
    QTest::newRow("second element") << QByteArray(R"([{},{"Corvane":{"set_weld_enable":{"return":true}}}])") << false;
    QTest::newRow("not an object") << QByteArray(R"([[true]])") << false;
    QTest::newRow("empty") << QByteArray("[]") << false;
}

void TestCommandResult::enableBool()
{
    QFETCH(QByteArray, result);
    QTEST(parseJsonBool(parse(result)), "accepted");
}

void TestCommandResult::logIdiom()
{
    FakeHost host;
    const QList<QPair<LogLevel, QString>> levels{{LogLevel::Information, "\033[36m[I|"},
                                                 {LogLevel::Warning, "\033[33m[W|"},
                                                 {LogLevel::Error, "\033[31m[E|"},
                                                 {LogLevel::Trace, "\033[35m[S|"},
                                                 {LogLevel::Debug, "\033[32m[D|"}};
    for (const auto& [level, start] : levels) {
        logLine(level) << "text";
        QCOMPARE(host.logs.last().colour + host.logs.last().tag.left(3), start);
        QCOMPARE(host.logs.last().filePath.isEmpty(), level == LogLevel::Debug);
    }
    host.forget();
    logLine(LogLevel::Warning) << "a" << QString("b \"c\"") << 7 << QStringList{"x", "y"};
    QCOMPARE(host.logs.size(), 1);
    const pendix::LogStatement warning = host.logs.first();
    QVERIFY(
        QRegularExpression("^\\[W\\|\\d\\d/\\d\\d \\d\\d:\\d\\d:\\d\\d\\.\\d{3}\\]$").match(warning.tag).hasMatch());
    QCOMPARE(warning.items, QStringList({"a", "b \"c\"", "7", "(x, y)"}));
    QCOMPARE(warning.filePath, QString("./log/pendix/Corvane/Corvane"));
}

void TestCommandResult::permission()
{
    // Who can't be asked has not agreed.
    QVERIFY(!operatorMayChange() && controller::isRobotPowered());
    FakeHost host;
    for (int level = 0; level <= 5; ++level) {
        host.level = level;
        QCOMPARE(operatorMayChange(), level >= 3);
    }
}

QTEST_MAIN(TestCommandResult)
#include "tst_commandresult.moc"
