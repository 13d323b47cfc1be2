#include "rl/instructiontext.h"
#include "tests/fakehost.h"

#include <QTest>

using corvane::util::extractFunctionAndParameters;
using corvane::util::removePrefixAndSuffix;

namespace
{

const QString kNoCall = "E|Parsing failed: Input string does not match function call format. input:|";

} // namespace

class TestInstructionText : public QObject
{
    Q_OBJECT

private slots:
    void split();
    void ends();
};

void TestInstructionText::split()
{
    const struct {
        QString text, name;
        QStringList arguments;
    } rows[] = {
        {"LaserOn(\"Ls,Data1\", 5)", "LaserOn", {"\"Ls", "Data1\"", "5"}},
        {"LsMoveL(Offs(p1,10,0,-2.5), v100, z10, tool0, wobj0);",
         "LsMoveL",
         {"Offs(p1,10,0,-2.5)", "v100", "z10", "tool0", "wobj0"}},
        {"f(g(h(1,2),3),4)", "f", {"g(h(1,2),3)", "4"}},
        {"f([1,2], 3)", "f", {"[1", "2]", "3"}},
        {" \t_f9 \n ( a );\r\n\v\f ", "_f9", {"a"}},
        {"LaserOff();", "LaserOff", {}},
        {"f(, ,)", "f", {}},
        {"f(), b), c)", "f", {")", "b)", "c"}},
        {"f((a, b)", "f", {"(a, b"}},
        {"f(a)(b)", "f", {"a)(b"}},
        {QString("f(") + QChar(0xd800) + ')', "", {}}, // half a character
        {"f(\u00a0a\u3000,\u0085)", "f", {"a"}},
    };
    for (const auto& [text, name, arguments] : rows) {
        FakeHost host;
        QString readName = "old";
        QStringList readArguments{"old"};
        QVERIFY2(extractFunctionAndParameters(text, readName, readArguments) != name.isEmpty(), qPrintable(text));
        QCOMPARE(readName, name);
        QCOMPARE(readArguments, arguments);
        const QString call = QString("D|functionName:|%1|,parameterList:|(%2)").arg(name, arguments.join(", "));
        const QString told = name == "LaserOff" ? QString("E|Extracted Parameter List: (Empty)") : call;
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
}

void TestInstructionText::ends()
{
    QCOMPARE(removePrefixAndSuffix("<<a>", "<<", ">"), QString("a"));
    QCOMPARE(removePrefixAndSuffix("aba", "ab", "ba"), QString("aba"));
    for (const QString same : {"<a", "a>"}) {
        QCOMPARE(removePrefixAndSuffix(same, "<", ">"), same);
    }
}

QTEST_MAIN(TestInstructionText)
#include "tst_instructiontext.moc"
