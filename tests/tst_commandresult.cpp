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
    void returnInt();
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

void TestCommandResult::returnInt()
{
    const QPair<const char*, int> codes[] = {{"1.9", 1},     {"-1.9", -1},   {"1e300", std::numeric_limits<int>::max()},
                                             {"\"12\"", 12}, {"\"abc\"", 0}, {"true", 1}};
    for (const auto& [code, expected] : codes) {
        const QByteArray member = R"({"Corvane":{"set_virtual_welding":{"return":)" + QByteArray(code) + "}}}]";
        QCOMPARE(extractReturnInt(parse('[' + member)), expected);
        QCOMPARE(extractReturnInt(parse("[7," + member)), 0); // the first element only
    }
}

void TestCommandResult::enableBool()
{
    for (const QJsonValue& code : {QJsonValue(true), QJsonValue(false), QJsonValue(1), QJsonValue("true")}) {
        QCOMPARE(parseJsonBool(FakeHost::answer("set_weld_enable", code)), code == QJsonValue(true));
    }
    QVERIFY(!parseJsonBool(parse("[[true]]")));
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
