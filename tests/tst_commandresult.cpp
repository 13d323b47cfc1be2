#include "common/commandresult.h"
#include "common/logline.h"
#include "common/operatormessage.h"
#include "tests/fakehost.h"

#include <QJsonDocument>
#include <QTest>
#include <QTranslator>

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
    void saveResult_data();
    void saveResult();
    void saveResultSpeaksInThePagesContext();
    void returnInt_data();
    void returnInt();
    void enableBool_data();
    void enableBool();
    void logIdiom();
    void permission();
};

void TestCommandResult::saveResult_data()
{
    QTest::addColumn<QByteArray>("result");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("log");

    const QString saved = "0|Saved successfully";
    const QString failed = "2|Save failed. Please check the parameter configuration.";
    const QString notFound = "Page::checkSaveResult failed. not found |set_x| Result";

    QTest::newRow("success") << QByteArray(R"([{"Corvane":{"set_x":{"return":0}}}])") << saved << "";
    QTest::newRow("failure") << QByteArray(R"([{"Corvane":{"set_x":{"return":7}}}])") << failed
                             << "Page::checkSaveResult failed. |set_x| Result:|7";
    QTest::newRow("text counts as 0") << QByteArray(R"([{"Corvane":{"set_x":{"return":"2"}}}])") << saved << "";
    QTest::newRow("boolean counts as 0") << QByteArray(R"([{"Corvane":{"set_x":{"return":true}}}])") << saved << "";
    QTest::newRow("null counts as 0") << QByteArray(R"([{"Corvane":{"set_x":{"return":null}}}])") << saved << "";
    QTest::newRow("second element answers")
        << QByteArray(R"([{"Corvane":{"other":{"return":0}}},{"Corvane":{"set_x":{"return":3}}}])") << failed
        << "Page::checkSaveResult failed. |set_x| Result:|3";
    QTest::newRow("first answer counts")
        << QByteArray(R"([{"Corvane":{"set_x":{"return":0}}},{"Corvane":{"set_x":{"return":3}}}])") << saved << "";
    QTest::newRow("malformed elements are skipped")
        << QByteArray(R"([1,null,[],{"Corvane":4},{"Corvane":{"set_x":5}},{"Corvane":{"set_x":{}}},
                         {"Corvane":{"set_x":{"return":0}}}])")
        << saved << "";
    QTest::newRow("silent controller") << QByteArray("[]") << "" << notFound;
    QTest::newRow("other plug-in") << QByteArray(R"([{"Other":{"set_x":{"return":0}}}])") << "" << notFound;
}

void TestCommandResult::saveResult()
{
    QFETCH(QByteArray, result);
    QFETCH(QString, message);
    QFETCH(QString, log);
    FakeHost host;
    reportSaveResult("Page", parse(result), "set_x");
    QCOMPARE(host.lastMessage(), message);
    QCOMPARE(host.messages.size(), message.isEmpty() ? 0 : 1);
    QCOMPARE(host.logs.isEmpty() ? QString() : host.logs.last().items.join('|'), log);
    if (!log.isEmpty()) {
        QVERIFY(host.logs.last().tag.startsWith("[E|"));
    }
}

void TestCommandResult::saveResultSpeaksInThePagesContext()
{
    struct PageTranslator : QTranslator {
        bool isEmpty() const override { return false; }
        QString translate(const char* context, const char* text, const char*, int) const override
        {
            return QLatin1String(context) + '/' + text;
        }
    } translator;
    QCoreApplication::installTranslator(&translator);
    FakeHost host;
    reportSaveResult("Page", FakeHost::answer("set_x", 0), "set_x");
    QCOMPARE(host.lastMessage(), QString("0|Page/Saved successfully"));
    reportSaveResult("Page", FakeHost::answer("set_x", 1), "set_x");
    QCOMPARE(host.lastMessage(), QString("2|Page/Save failed. Please check the parameter configuration."));
    QCoreApplication::removeTranslator(&translator);
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
    FakeHost host;
    for (int level = 0; level <= 5; ++level) {
        host.level = level;
        QCOMPARE(operatorMayChange(), level >= 3);
    }
}

QTEST_MAIN(TestCommandResult)
#include "tst_commandresult.moc"
