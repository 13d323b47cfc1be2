#include "common/mjson.h"
#include "tests/fakehost.h"

#include <QJsonDocument>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTest>

#include <algorithm>

namespace
{

using Tokens = QVector<QPair<bool, QString>>;

/// The order as it is defined, token by token with a regular expression: slow, but plain to read.
bool definedLess(const QString& a, const QString& b)
{
    static const QRegularExpression expression("([A-Za-z]+|\\d+)");
    const auto split = [](const QString& text) {
        Tokens tokens;
        for (auto matches = expression.globalMatch(text); matches.hasNext();) {
            const QString token = matches.next().captured(1);
            bool isNumber = false;
            token.toInt(&isNumber);
            tokens.append({isNumber, token});
        }
        return tokens;
    };
    const Tokens ta = split(a);
    const Tokens tb = split(b);
    for (int i = 0; i < std::min(ta.size(), tb.size()); ++i) {
        if (ta[i].first && tb[i].first) {
            if (ta[i].second.toInt() != tb[i].second.toInt()) {
                return ta[i].second.toInt() < tb[i].second.toInt();
            }
        } else if (ta[i].second != tb[i].second) {
            return ta[i].second < tb[i].second;
        }
    }
    return ta.size() < tb.size();
}

QJsonValue metadata(const char* json)
{
    const QJsonDocument document = QJsonDocument::fromJson(json);
    return document.isArray() ? QJsonValue(document.array()) : QJsonValue(document.object());
}

} // namespace

class TestMJson : public QObject
{
    Q_OBJECT

private slots:
    void naturalOrder_data();
    void naturalOrder();
    void naturalOrderAgreesWithDefinition();
    void signalLists();
    void registerLists_data();
    void registerLists();
    void accessWords();
    void integerTypes();
    void firstFilledKeyCounts();
    void registerWarnings_data();
    void registerWarnings();
    void registerLength();
    void accessors();
};

void TestMJson::naturalOrder_data()
{
    QTest::addColumn<QStringList>("sorted");
    QTest::newRow("numbers by value") << QStringList{"DO1", "DO2", "DO10"};
    QTest::newRow("underscore is skipped") << QStringList{"R_a2", "R_b1"};
    QTest::newRow("fewer tokens first") << QStringList{"abc", "abc1", "abc1x"};
    QTest::newRow("upper case first") << QStringList{"DO9", "do1"};
    QTest::newRow("a number before letters, as text") << QStringList{"7", "x"};
    QTest::newRow("too long for an int: as text") << QStringList{"R10000000000", "R9999999999"};
    QTest::newRow("beyond ASCII separates") << QStringList{QString::fromUtf8("焊1"), QString::fromUtf8("a焊"), "b"};
    QTest::newRow("empty names") << QStringList{"", "_", "a"};
}

void TestMJson::naturalOrder()
{
    QFETCH(QStringList, sorted);
    QStringList reversed = sorted;
    std::reverse(reversed.begin(), reversed.end());
    if (QLatin1String(QTest::currentDataTag()) == QLatin1String("empty names")) {
        reversed = QStringList{"a", "", "_"}; // "" and "_" are equal and keep their order
    }
    QCOMPARE(mJson::naturalSort(reversed), sorted);
}

void TestMJson::naturalOrderAgreesWithDefinition()
{
    QRandomGenerator random(7);
    const QString alphabet = QString::fromUtf8("aBz019_ 焊٣");
    for (int round = 0; round < 200; ++round) {
        QStringList names;
        for (int i = 0; i < 40; ++i) {
            QString name;
            for (int length = random.bounded(14); length > 0; --length) {
                name += alphabet.at(random.bounded(alphabet.size()));
            }
            names.append(name);
        }
        QStringList expected = names;
        std::stable_sort(expected.begin(), expected.end(), definedLess);
        QCOMPARE(mJson::naturalSort(names), expected);
    }
}

void TestMJson::signalLists()
{
    FakeHost host;
    host.io = {{"DO", {"DO10", "DO2"}}, {"DI", {"DI1"}}, {"AO", {"AO3"}},
               {"AI", {"AI4"}},         {"GO", {"GO5"}}, {"GI", {"GI6"}}};
    host.registerNames = QStringList{"R10", "R9"};
    QCOMPARE(mJson::GetDO(), QStringList({"DO2", "DO10"}));
    QCOMPARE(mJson::GetDI() + mJson::GetAO() + mJson::GetAI() + mJson::GetGO() + mJson::GetGI(),
             QStringList({"DI1", "AO3", "AI4", "GO5", "GI6"}));
    QCOMPARE(mJson::GetREG(), QStringList({"R9", "R10"}));
}

void TestMJson::registerLists_data()
{
    QTest::addColumn<QStringList>("list");
    QTest::addColumn<QStringList>("expected");
    FakeHost host;
    host.registers = metadata(R"([
        {"name":"B2","type":"bool","rw":"rw"}, {"name":"B10","type":"BIT","rw":"ro"}, {"name":"B1","type":"bool","rw":"w"},
        {"name":"I1","type":"UInt16 ","rw":" RW"}, {"name":"I2","type":"byte","rw":"readonly"}, {"name":"I2","type":"int","rw":"rd"},
        {"name":"F1","type":"float","rw":"wt"}, {"name":"F2","type":"double","rw":"read"},
        {"reg_name":"Alt","value_type":"bool","mode":"r"}, {"name":" ","key":"Key","data_type":"bool","perm":"x"},
        {"id":77,"reg_type":"int64","permission":"wo"}, {"name":"S1","type":"string","rw":"rw"},
        {"name":"","type":"bool","rw":"w"}, 5, null])");
    const auto row = [](const char* name, const QStringList& list, const QStringList& expected) {
        QTest::newRow(name) << list << expected;
    };
    row("bool", mJson::GetREGBool(), {"Alt", "B1", "B2", "B10", "Key"});
    row("bool writable", mJson::GetREGBoolWritable(), {"B1", "B2"});
    row("bool readable", mJson::GetREGBoolReadable(), {"Alt", "B10"});
    row("integer", mJson::GetREGInteger(), {"77", "I1", "I2"});
    row("integer writable", mJson::GetREGIntegerWritable(), {"77", "I1"});
    row("integer readable", mJson::GetREGIntegerReadable(), {"I2"});
    row("float", mJson::GetREGFloat(), {"F1", "F2"});
    row("float writable", mJson::GetREGFloatWritable(), {"F1"});
    row("float readable", mJson::GetREGFloatReadable(), {"F2"});
    row("numeric", mJson::GetREGNumeric(), {"77", "F1", "F2", "I1", "I2"});
    row("numeric writable", mJson::GetREGNumericWritable(), {"77", "F1", "I1"});
    row("numeric readable", mJson::GetREGNumericReadable(), {"F2", "I2"});
    row("unknown access word filters nothing", mJson::GetREGByTypes({" STRING "}, "maybe"), {"S1"});
    row("no types", mJson::GetREGByTypes({}), {});
}

void TestMJson::registerLists()
{
    QFETCH(QStringList, list);
    QTEST(list, "expected");
}

void TestMJson::accessWords()
{
    const QStringList readOnly{"rd", "read", "ro", "r", "readonly"};
    const QStringList writable{"wr", "write", "w", "wo", "wt", "rdwr", "rw"};
    FakeHost host;
    QJsonArray registers;
    for (const QString& word : readOnly + writable + QStringList{"x"}) {
        registers.append(QJsonObject{{"name", word}, {"type", "bool"}, {"rw", word}});
    }
    host.registers = registers;
    const auto passing = [](const QString& rw) {
        const QStringList names = mJson::GetREGByTypes({"bool"}, rw);
        return QSet<QString>(names.begin(), names.end());
    };
    for (const char* rw : {"r", "read", "RD ", "ro"}) {
        QCOMPARE(passing(rw), QSet<QString>(readOnly.begin(), readOnly.end()));
    }
    for (const char* rw : {"w", "write", "wr", " Wo"}) {
        QCOMPARE(passing(rw), QSet<QString>(writable.begin(), writable.end()));
    }
    QCOMPARE(passing("rw").size(), registers.size());
}

void TestMJson::integerTypes()
{
    const QStringList types{"int8",  "uint8",  "byte",  "int16", "uint16", "word",   "short",
                            "int32", "uint32", "dword", "int",   "int64",  "uint64", "long"};
    FakeHost host;
    QJsonArray registers;
    for (const QString& type : types) {
        registers.append(QJsonObject{{"name", type}, {"type", type}, {"rw", "rw"}});
    }
    host.registers = registers;
    QCOMPARE(mJson::GetREGInteger(), mJson::naturalSort(types));
}

void TestMJson::firstFilledKeyCounts()
{
    FakeHost host;
    const QList<QStringList> fields{{"type", "reg_type", "value_type", "data_type"},
                                    {"rw", "access", "perm", "permission", "mode"},
                                    {"name", "reg_name", "key", "id"}};
    const QStringList good{"bool", "ro", "R"};
    // Every key is tried with a wrong value behind it and empty ones before it.
    for (int field = 0; field < fields.size(); ++field) {
        for (int key = 0; key < fields[field].size(); ++key) {
            QJsonObject object{{"type", good[0]}, {"rw", good[1]}, {"name", good[2]}};
            for (int i = 0; i < fields[field].size(); ++i) {
                object.insert(fields[field][i], i < key ? QString(" ") : i == key ? good[field] : QString("wrong"));
            }
            host.registers = QJsonArray{object};
            QCOMPARE(mJson::GetREGBoolReadable(), QStringList{"R"});
        }
    }
}

void TestMJson::registerWarnings_data()
{
    const QByteArray noArray =
        "[corvane][JsonCommon] getRegisterValue is not an array, cannot filter registers by type.";
    const QByteArray incomplete =
        "[corvane][JsonCommon] register metadata missing name/type/rw (type/reg_type/value_type/data_type + "
        "rw/access/perm/permission/mode), cannot filter by type and read/write.";
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QByteArray>("warning");
    QTest::addColumn<QStringList>("names");
    QTest::newRow("no array") << QByteArray("{}") << noArray << QStringList();
    QTest::newRow("empty") << QByteArray("[]") << incomplete << QStringList();
    QTest::newRow("no access anywhere") << QByteArray(R"([{"name":"R1","type":"bool"}])") << incomplete
                                        << QStringList{"R1"};
}

void TestMJson::registerWarnings()
{
    QFETCH(QByteArray, json);
    QFETCH(QByteArray, warning);
    QFETCH(QStringList, names);
    FakeHost host;
    host.registers = metadata(json);
    QTest::ignoreMessage(QtWarningMsg, warning.constData());
    QCOMPARE(mJson::GetREGBool(), names);
}

void TestMJson::registerLength()
{
    FakeHost host;
    host.registers =
        metadata(R"([1, {"name":"R1","len":0}, {"name":"R1","len":9}, {"name":"R2"}, {"name":"R3","len":"6"},
                                  {"name":"R4","len":12}])");
    QCOMPARE(mJson::GetRegisterLen("R1", 4), 1);
    QCOMPARE(mJson::GetRegisterLen("R2", 4), 4);
    QCOMPARE(mJson::GetRegisterLen("R3", 4), 4);
    QCOMPARE(mJson::GetRegisterLen(" R4 ", 4), 12);
    QCOMPARE(mJson::GetRegisterLen("r4", 4), 4);
    QCOMPARE(mJson::GetRegisterLen("  ", 4), 4);
    host.registers = QJsonValue();
    QCOMPARE(mJson::GetRegisterLen("R4", 4), 4);
}

void TestMJson::accessors()
{
    const QJsonObject object{{"a", 1}, {"list", QJsonArray{1, 2}}, {"o", QJsonObject()}};
    QCOMPARE(mJson::getSubValue(object, "a"), QJsonValue(1));
    QVERIFY(mJson::getSubValue(QJsonArray(), "a").isNull());
    QVERIFY(mJson::hasSubValue(object, "a") && !mJson::hasSubValue(object, "b") && !mJson::hasSubValue(3, "a"));
    QCOMPARE(mJson::getSubArray(object, "list").size(), 2);
    QVERIFY(mJson::getSubArray(object, "o").isEmpty());
    QVERIFY(mJson::hasSubArray(object, "list") && !mJson::hasSubArray(object, "o") && !mJson::hasSubArray(1, "list"));
}

QTEST_MAIN(TestMJson)
#include "tst_mjson.moc"
