#include "rl/callscanner.h"
#include "rl/instructiontext.h"
#include "tests/fakehost.h"

#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTest>

using corvane::util::extractFunctionAndParameters;
using corvane::util::removePrefixAndSuffix;

namespace
{

const QString kNoCall = "E|Parsing failed: Input string does not match function call format. input:|";

/// Texts that a reader of calls could trip over, in pieces.
QStringList alphabet()
{
    QStringList pieces = QString("( ) ; , \" // _ a Z 0 9 [ %1").split(' ');
    const QVector<ushort> others{0,    9,    10,    11,     12,     13,     ' ',    0x1f,   0x85,
                                 0xa0, 0xe9, 0x660, 0x2028, 0x3000, 0x70b9, 0xd800, 0xdc00, 0xfeff};
    for (const ushort code : others) {
        pieces.append(QChar(code));
    }
    return pieces;
}

} // namespace

class TestInstructionText : public QObject
{
    Q_OBJECT

private slots:
    void split_data();
    void split();
    void likeTheExpression();
    void ends();
};

void TestInstructionText::split_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("arguments");
    const auto call = [](const char* text, const char* name, const QStringList& arguments) {
        QTest::newRow(QByteArray(text).simplified()) << QString(text) << QString(name) << arguments;
    };
    call("LaserOn(\"Ls,Data1\", 5)", "LaserOn", {"\"Ls", "Data1\"", "5"});
    call("LsMoveL(Offs(p1,10,0,-2.5), v100, z10, tool0, wobj0);", "LsMoveL",
         {"Offs(p1,10,0,-2.5)", "v100", "z10", "tool0", "wobj0"});
    call("f(g(h(1,2),3),4)", "f", {"g(h(1,2),3)", "4"});
    call("f([1,2], 3)", "f", {"[1", "2]", "3"});
    call(" \t_f9 \n ( a );\r\n\v\f ", "_f9", {"a"});
    call("LaserOff();", "LaserOff", {});
    call("f(a,,b)", "f", {"a", "b"});
    call("f(, ,)", "f", {});
    call("f(a), b)", "f", {"a)", "b"});
    call("f(), b), c)", "f", {")", "b)", "c"});
    call("f((a, b)", "f", {"(a, b"});
    call("f(a)(b)", "f", {"a)(b"});
    call("f(a); // comment", "", {});
    QTest::newRow("blanks of other scripts") << QString("f(\u00a0a\u3000,\u0085)") << "f" << QStringList{"a"};
}

void TestInstructionText::split()
{
    QFETCH(QString, text);
    QFETCH(QString, name);
    QFETCH(QStringList, arguments);
    FakeHost host;
    QString readName = "old";
    QStringList readArguments{"old"};
    QCOMPARE(extractFunctionAndParameters(text, readName, readArguments), !name.isEmpty());
    QCOMPARE(readName, name);
    QCOMPARE(readArguments, arguments);
    const bool isEmpty = text.contains("()") && arguments.isEmpty();
    const QString told = isEmpty ? QString("E|Extracted Parameter List: (Empty)")
                                 : QString("D|functionName:|%1|,parameterList:|(%2)").arg(name, arguments.join(", "));
    QCOMPARE(host.logs.size(), 1);
    QCOMPARE(host.logs[0].tag.mid(1, 2) + host.logs[0].items.join('|'), name.isEmpty() ? kNoCall + text : told);
    // The input may be an output, or stand in one; nobody else holds the text then.
    QString both = QString(text.constData(), text.size());
    extractFunctionAndParameters(both, both, readArguments);
    QCOMPARE(both, name);
    QStringList list{QString(text.constData(), text.size())};
    extractFunctionAndParameters(list[0], readName, list);
    QCOMPARE(list, arguments);
    QCOMPARE(host.logs.last().items, host.logs.first().items);
}

void TestInstructionText::likeTheExpression()
{
    const QRegularExpression expression(R"(^\s*(\w+)\s*\((.*?)\);?\s*$)");
    const QStringList pieces = alphabet();
    QRandomGenerator random(20);
    const auto some = [&](int most) {
        QString text;
        for (int i = random.bounded(most + 1); i > 0; --i) {
            text += pieces.at(random.bounded(pieces.size()));
        }
        return text;
    };
    int matched = 0;
    for (int i = 0; i < 200000; ++i) {
        // Half of them are near a call: at random few would be one.
        const QString text = i % 2 == 0 ? some(10) : some(1) + "f1" + some(1) + '(' + some(6) + ')' + some(2);
        const QRegularExpressionMatch match = expression.match(text);
        const std::optional<CallText> call = scanCall(text);
        const QByteArray shown = text.toUtf8().toPercentEncoding();
        QVERIFY2(match.hasMatch() == call.has_value(), shown);
        if (call) {
            ++matched;
            QVERIFY2(call->name == match.captured(1).trimmed() && call->arguments == match.captured(2).trimmed(),
                     shown);
        }
    }
    QVERIFY2(matched > 10000, QByteArray::number(matched));
}

void TestInstructionText::ends()
{
    QCOMPARE(removePrefixAndSuffix("<<a>", "<<", ">"), QString("a"));
    QCOMPARE(removePrefixAndSuffix("<>", "<", ">"), QString(""));
    QCOMPARE(removePrefixAndSuffix("aba", "ab", "ba"), QString("aba"));
    for (const QString same : {"<a", "a>", "Xay", "<"}) {
        QCOMPARE(removePrefixAndSuffix(same, "<", ">"), same);
        QCOMPARE(removePrefixAndSuffix(same, "x", "y"), same);
    }
    QCOMPARE(unwrapQuotes("\"\"a\"\""), QString("\"a\""));
    for (const QString same : {"\"", "", "\"a", " \"a\""}) {
        QCOMPARE(unwrapQuotes(same), same);
    }
}

QTEST_MAIN(TestInstructionText)
#include "tst_instructiontext.moc"
