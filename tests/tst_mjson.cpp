#include "common/mjson.h"
#include "tests/fakehost.h"

#include <QJsonDocument>
#include <QTest>

#include <algorithm>

namespace
{

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
    void naturalOrder();
    void signalLists();
    void registerLists();
    void words();
    void firstFilledKeyCounts();
    void registerWarnings();
    void registerLength();
};

void TestMJson::naturalOrder()
{
    const QStringList lists[] = {
        {"DO1", "DO2", "DO10"},           // numbers by value
        {"R999999999", "R1000000000"},    // as long as they fit an int,
        {"R10000000000", "R9999999999"},  // else as text
        {"a0", "aB"},                     // a number before letters, also as text
        {"abc", "abc1", "abc1x", "abcd"}, // fewer tokens first
        {"DO9", "do1"},                   // upper case first
        {"R_a2", "R_b1"},                 // what is neither letter nor digit only separates
        {QString::fromUtf8("焊1"), QString::fromUtf8("a焊"), "b"},
        {"", "_", "a"},     // equal names keep their order,
        {"a00", "a0", "b"}, // and equal numbers make equal names
    };
    for (const QStringList& sorted : lists) {
        QStringList turned = sorted;
        std::rotate(turned.begin(), turned.end() - 1, turned.end());
        QCOMPARE(mJson::naturalSort(turned), sorted);
    }
}

void TestMJson::signalLists()
{
    FakeHost host;
    host.io = {{"DO", {"DO10", "DO2"}}, {"DI", {"DI1"}}, {"AO", {"AO3"}},
               {"AI", {"AI4"}},         {"GO", {"GO5"}}, {"GI", {"GI6"}}};
    host.registerNames = QStringList{"R10", "R9"};
    QCOMPARE(mJson::GetDO(), QStringList({"DO2", "DO10"}));
    host.io["DO"].append("DO30"); // only an unchanged list may be taken as sorted before
    QCOMPARE(mJson::GetDO(), QStringList({"DO2", "DO10", "DO30"}));
    host.io["DO"].last() = "DO3";
    QCOMPARE(mJson::GetDO(), QStringList({"DO2", "DO3", "DO10"}));
    QCOMPARE(mJson::GetDI() + mJson::GetAO() + mJson::GetAI() + mJson::GetGO() + mJson::GetGI(),
             QStringList({"DI1", "AO3", "AI4", "GO5", "GI6"}));
    QCOMPARE(mJson::GetREG(), QStringList({"R9", "R10"}));
}

void TestMJson::registerLists()
{
    FakeHost host;
    host.registers = metadata(R"([
        {"name":"B2","type":"bool","rw":"rw"}, {"name":"B10","type":"BIT","rw":"ro"}, {"name":"B1","type":"bool","rw":"w"},
        {"name":"I1","type":"UInt16 ","rw":" RW"}, {"name":"I2","type":"byte","rw":"readonly"}, {"name":"I2","type":"int","rw":"rd"},
        {"name":"F1","type":"float","rw":"wt"}, {"name":"F2","type":"double","rw":"read"},
        {"reg_name":"Alt","value_type":"bool","mode":"r"}, {"name":" ","key":"Key","data_type":"bool","perm":"x"},
        {"id":77,"reg_type":"int64","permission":"wo"}, {"name":"S1","type":"string","rw":"rw"},
        {"name":"","type":"bool","rw":"w"}, 5, null])");
    QCOMPARE(mJson::GetREGBool(), QStringList({"Alt", "B1", "B2", "B10", "Key"}));
    QCOMPARE(mJson::GetREGBoolWritable(), QStringList({"B1", "B2"}));
    QCOMPARE(mJson::GetREGBoolReadable(), QStringList({"Alt", "B10"}));
    QCOMPARE(mJson::GetREGInteger(), QStringList({"77", "I1", "I2"}));
    QCOMPARE(mJson::GetREGIntegerWritable(), QStringList({"77", "I1"}));
    QCOMPARE(mJson::GetREGIntegerReadable(), QStringList({"I2"}));
    QCOMPARE(mJson::GetREGFloat(), QStringList({"F1", "F2"}));
    QCOMPARE(mJson::GetREGFloatWritable(), QStringList({"F1"}));
    QCOMPARE(mJson::GetREGFloatReadable(), QStringList({"F2"}));
    QCOMPARE(mJson::GetREGNumeric(), QStringList({"77", "F1", "F2", "I1", "I2"}));
    QCOMPARE(mJson::GetREGNumericWritable(), QStringList({"77", "F1", "I1"}));
    QCOMPARE(mJson::GetREGNumericReadable(), QStringList({"F2", "I2"}));
    QCOMPARE(mJson::GetREGByTypes({" STRING "}, "maybe"), QStringList({"S1"})); // an unknown word filters nothing
    QCOMPARE(mJson::GetREGByTypes({}), QStringList());
}

void TestMJson::words()
{
    const QStringList readOnly{"rd", "read", "ro", "r", "readonly"};
    const QStringList writable{"wr", "write", "w", "wo", "wt", "rdwr", "rw"};
    const QStringList integers{"int8",  "uint8",  "byte",  "int16", "uint16", "word",   "short",
                               "int32", "uint32", "dword", "int",   "int64",  "uint64", "long"};
    FakeHost host;
    QJsonArray registers;
    for (const QString& word : readOnly + writable + QStringList{"x"}) {
        registers.append(QJsonObject{{"name", word}, {"type", "bool"}, {"rw", word}});
    }
    for (const QString& type : integers) {
        registers.append(QJsonObject{{"name", type}, {"type", type}, {"rw", "rw"}});
    }
    host.registers = registers;
    for (const char* rw : {"r", "read", "RD ", "ro"}) {
        QCOMPARE(mJson::GetREGByTypes({"bool"}, rw), mJson::naturalSort(readOnly));
    }
    for (const char* rw : {"w", "write", "wr", " Wo"}) {
        QCOMPARE(mJson::GetREGByTypes({"bool"}, rw), mJson::naturalSort(writable));
    }
    QCOMPARE(mJson::GetREGByTypes({"bool"}, "rw").size(), readOnly.size() + writable.size() + 1); // no filter
    QCOMPARE(mJson::GetREGInteger(), mJson::naturalSort(integers));
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

void TestMJson::registerWarnings()
{
    constexpr char kNoArray[] =
        "[corvane][JsonCommon] getRegisterValue is not an array, cannot filter registers by type.";
    constexpr char kIncomplete[] =
        "[corvane][JsonCommon] register metadata missing name/type/rw (type/reg_type/value_type/data_type + "
        "rw/access/perm/permission/mode), cannot filter by type and read/write.";
    const struct {
        const char* json;
        const char* warning;
        QStringList names;
    } cases[] = {
        {"{}", kNoArray, {}}, {"[]", kIncomplete, {}}, {R"([{"name":"R1","type":"bool"}])", kIncomplete, {"R1"}}};
    for (const auto& expected : cases) {
        FakeHost host;
        host.registers = metadata(expected.json);
        QTest::ignoreMessage(QtWarningMsg, expected.warning);
        QCOMPARE(mJson::GetREGBool(), expected.names);
    }
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

QTEST_MAIN(TestMJson)
#include "tst_mjson.moc"
