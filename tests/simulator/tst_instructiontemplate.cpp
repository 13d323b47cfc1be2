#include "simulator/program/templateeditor.h"

#include <QComboBox>
#include <QSpinBox>
#include <QtTest>

using namespace sim;

namespace
{

const QString kForward = QStringLiteral("LsWireFwd($Wire feed speed [1-100](mm/s):#spn#1,100#true$, "
                                        "$Wire feed time [1-10000](ms):#spn#1,10000#true$);");
const QString kBackward = QStringLiteral("LsWireBwd($Speed:#spn#-100,-1#true$;$Time:#spn#0,10#false$)");
const QString kMatch = QStringLiteral("LsParaMatch($Sched:#cmb#\"PowerData1\"/\"PowerData2\"/\"Power, 10)\"#true$);");
const QString kPair = QStringLiteral("Pair( $A:#cmb#\"a,\"/%1#true$ , $B:#cmb#b, c/d)#true$ ) ;");

InstructionTemplate parsed(const QString& text)
{
    QString fault;
    const auto result = InstructionTemplate::parse(text, &fault);
    if (!result) {
        qFatal("%s: %s", qPrintable(text), qPrintable(fault));
    }
    return *result;
}

} // namespace

class TestInstructionTemplate : public QObject
{
    Q_OBJECT

private slots:
    void faultNamesTheField();
    void valuesOfForeignLines();
    void editorTakesWhatItsFieldsAllow();
};

void TestInstructionTemplate::faultNamesTheField()
{
    const char* const rows[][2] = {
        {"f();", "has no field"},
        {"f($a#spn#1,2#true$,$b#spn#1,2#true);", "field 2: it has no $ at its end"},
        {"f($a#spn#1,2$);", "field 1: it has not 4 parts, but 3"},
        {"f($a#spn#1,2#true#$);", "field 1: it has not 4 parts, but 5"},
        {"f($ #spn#1,2#true$);", "field 1: it has no label"},
        {"f($a#spin#1,2#true$);", "field 1: there is no kind spin"},
        {"f($a#spn#1,2#yes$);", "field 1: expected true or false, not yes"},
        {"f($a#spn#1#true$);", "field 1: the range 1 is not two whole numbers"},
        {"f($a#spn#1,2,3#true$);", "field 1: the range 1,2,3 is not two whole numbers"},
        {"f($a#spn#0.5,2#true$);", "field 1: the range 0.5,2 is not two whole numbers"},
        {"f($a#spn#1,9999999999#true$);", "field 1: the range 1,9999999999 is not two whole numbers"},
        {"f($a#spn#3,2#true$);", "field 1: the range 3,2 has its minimum above"},
        {"f($a#spn#1,2#true$,$b#cmb##true$);", "field 2: an item is empty"},
        {"f($a#cmb#x/ /y#true$);", "field 1: an item is empty"},
        {"f($a#cmb#x/y/ x#true$);", "field 1: the item x is there twice"},
        {"f($a#cmb#\"x/\"y\"#true$);", "field 1: the item \"x has a quote that is not closed"},
        {"f($a#spn#1,2#true$ $b#spn#1,2#true$);", "field 1: nothing stands between it and the next"},
        {"f($a#spn#1,2#true$0$b#spn#1,2#true$);", "field 1: a value can have the 0 in it"},
        {"f($a#spn#-1,2#true$-$b#spn#1,2#true$);", "field 1: a value can have the - in it"},
        {"f($a#cmb#1/1,2#true$ ,$b#spn#1,2#true$);", "field 1: a value can have the , in it"},
        {"f($a#spn#1,2#true$); // b", "has a comment"},
        {"f(\"$a#spn#1,2#true$);", "has a quote that is not closed"},
    };
    for (const auto& [text, fault] : rows) {
        QString told;
        QVERIFY2(!InstructionTemplate::parse(QString::fromLatin1(text), &told), text);
        QVERIFY2(told.startsWith(QLatin1String(fault)), qPrintable(told));
    }
}

void TestInstructionTemplate::valuesOfForeignLines()
{
    const char* const rows[][2] = {
        {"Pair(\"a,\",d));", "\"a,\"|d)"},
        {"\tPair(  \"a,\"\t,  b,  c)  ;  ", "\"a,\"|b,  c"},
        {"Pair(,);", "|"},
        {"Pair(\"a", "-"},
        {"Pair(1);", "-"},
        {"Pair(1,2); x", "-"},
        {"Pairs(1,2);", "-"},
        {"x Pair(1,2);", "-"},
        {"", "-"},
    };
    for (const auto& [code, expected] : rows) {
        const auto values = parsed(kPair).values(QString::fromLatin1(code));
        QVERIFY2((values ? values->join(QLatin1Char('|')) : QStringLiteral("-")) == QLatin1String(expected), code);
    }
}

void TestInstructionTemplate::editorTakesWhatItsFieldsAllow()
{
    const struct {
        QString text, line, result;
    } rows[] = {
        {kForward, "LsWireFwd(0,10001); // LsWireFwd(3,4);", "LsWireFwd(1, 10000);"},
        {kForward, "LsWireFwd(-99999999999999999999, +99999999999999999999);", "LsWireFwd(1, 10000);"},
        {kForward, "LsWireFwd(1.5, 0070);", "LsWireFwd(50, 70);"},
        {kForward, "LsWireFwd(, );", "LsWireFwd(50, 60);"},
        {kForward, "LsWireFwd(7);", "LsWireFwd(50, 60);"},
        {kForward, "", "LsWireFwd(50, 60);"},
        {kBackward, "LsWireBwd(-7;-8)//", "LsWireBwd(-7;0)"},
        {kMatch, "LsParaMatch( \"PowerData2\" ) ;", "LsParaMatch(\"PowerData1\");"},
        {kMatch, "LsParaMatch( \"PowerData2\" );", "LsParaMatch(\"PowerData2\");"},
        {kMatch, "LsParaMatch(PowerData2);", "LsParaMatch(\"PowerData1\");"},
        {kMatch, "LsParaMatch(\"powerdata2\");", "LsParaMatch(\"PowerData1\");"},
    };
    for (const auto& [text, line, result] : rows) {
        TemplateEditor editor(parsed(text));
        editor.FillWith(QStringLiteral("LsWireFwd(50, 60);"));
        editor.FillWith(line);
        QCOMPARE(editor.ToString(), result);
        QVERIFY(editor.CheckInsert() && editor.CheckReplace());
        // What the operator enters goes into the line as well.
        if (auto* number = editor.findChild<QSpinBox*>(QStringLiteral("field2"))) {
            number->setValue(10);
            QVERIFY(editor.ToString().contains(QLatin1String("10)")));
        } else {
            editor.findChild<QComboBox*>(QStringLiteral("field1"))->setCurrentIndex(2);
            QVERIFY(editor.ToString().contains(QLatin1String("(\"Power, 10)\")")));
        }
    }
}

QTEST_MAIN(TestInstructionTemplate)
#include "tst_instructiontemplate.moc"
