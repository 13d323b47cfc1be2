#include "pendixhost/host.h"
#include "rl/rlcustominsertwidget.h"
#include "rl/rlcustompropretywidget.h"
#include "rl/rllaseroninsertwidget.h"
#include "rl/rllaserwelddefine.h"
#include "rl/rlparasetinsertwidget.h"
#include "rl/wmovelpropertywidget.h"
#include "tests/fakehost.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <QTest>

#include <memory>
#include <stdexcept>

using namespace pendix;

namespace
{

/// The editor of LaserOn or of LsParaSet, with its one row that comes and goes.
struct Shown {
    FakeHost host;
    std::unique_ptr<RLContentBase> editor;
    QSpinBox* number;
    QLabel* label;

    explicit Shown(bool isLaserOn)
        : editor(isLaserOn ? static_cast<RLContentBase*>(new RLLaserOnInsertWidget("LaserOn"))
                           : new RLParaSetInsertWidget("LsParaSet")),
          number(editor->findChild<QSpinBox*>()),
          label(editor->findChild<QLabel*>(isLaserOn ? "labelInPlaceWait" : "label"))
    {
    }
    bool hasRow() const
    {
        const bool isShown = number->isVisibleTo(editor.get());
        return isShown == label->isVisibleTo(editor.get()) ? isShown : throw std::logic_error("half a row");
    }
};

} // namespace

class TestInstructionEditors : public QObject
{
    Q_OBJECT

private slots:
    void fill_data();
    void fill();
    void byHand();
    void fixedLine();
    void generic();
    void exceptions();
};

void TestInstructionEditors::fill_data()
{
    QTest::addColumn<QStringList>("lines"); // one after the other
    QTest::addColumn<QString>("written");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("warning");
    const auto row = [](const char* name, const QStringList& lines, const char* written, int number,
                        const char* warning = "") {
        QTest::addRow("%.5s: %s", written, name) << lines << written << number << warning;
    };
    const char* spot = "LaserOn(\"LsData3\", 250);";
    row("fresh", {}, "LaserOn(\"LsData1\");", 500);
    row("spot weld", {spot}, spot, 250);
    row("too long", {"LaserOn(\"LsData1\",9000)"}, "LaserOn(\"LsData1\", 5000);", 5000);
    row("negative", {"LaserOn(\"LsData1\",-5)"}, "LaserOn(\"LsData1\", 0);", 0);
    row("no whole number", {spot, "LaserOn(\"LsData3\",7.5)"}, spot, 250);
    row("no quotes, other function", {"f(LsData7,1,2)"}, "LaserOn(\"LsData7\", 1);", 1);
    row("unknown set", {spot, "LaserOn(\"lsdata7\",1)"}, "LaserOn(\"LsData3\", 1);", 1);
    row("no call", {spot, "LaserOn(\"LsData1\"); // comment"}, spot, 250);
    row("no arguments", {spot, "LaserOn();"}, "LaserOn(\"LsData3\");", 250);
    const char* timed = "LsParaSet(\"LsData2\",\"Time\",300);";
    row("fresh", {}, "LsParaSet(\"LsData1\");", 200);
    row("lower case", {"LsParaSet( \"LsData5\" , \"time\" , 350 )"}, "LsParaSet(\"LsData5\",\"Time\",350);", 350);
    row("upper case", {"f(LsData5,POS)"}, "LsParaSet(\"LsData5\",\"Pos\");", 200);
    row("no value", {timed, "f(LsData1,Time);"}, "LsParaSet(\"LsData1\",\"Time\",0);", 0);
    row("value that is none", {timed, "f(LsData1,Time,x);"}, "LsParaSet(\"LsData1\",\"Time\",0);", 0);
    row("too long", {"f(LsData1,Time,5000);"}, "LsParaSet(\"LsData1\",\"Time\",1000);", 1000);
    row("unknown ramp", {timed, "f(LsData1,\"Ramp\",5);"}, "LsParaSet(\"LsData1\");", 300);
    row("ramp is kept", {"f(LsData1,Pos)", "f(LsData9)"}, "LsParaSet(\"LsData9\",\"Pos\");", 200);
    row("unknown set", {timed, "f(\"LsData31\",\"Pos\")"}, "LsParaSet(\"LsData2\",\"Pos\");", 300);
    row("no call", {timed, "LsParaSet(\"LsData1\"); // text"}, timed, 300);
    row("no arguments", {timed, "LsParaSet();"}, timed, 300,
        " Missing required parameters! funcName:|LsParaSet|, params:|()");
}

void TestInstructionEditors::fill()
{
    QFETCH(QStringList, lines);
    QFETCH(QString, written);
    Shown shown(written.startsWith("LaserOn"));
    for (const QString& line : qAsConst(lines)) {
        shown.editor->FillWith(line);
    }
    QCOMPARE(shown.editor->ToString(), written);
    QTEST(shown.number->value(), "number");
    QCOMPARE(shown.hasRow(), written.contains(", ") || written.contains("Time"));
    QVERIFY(shown.editor->CheckInsert() && shown.editor->CheckReplace());
    QTEST(shown.host.warnings().join('\n'), "warning");
}

void TestInstructionEditors::byHand()
{
    for (const bool isLaserOn : {true, false}) {
        const Shown shown(isLaserOn);
        QCOMPARE(shown.number->buttonSymbols(), QAbstractSpinBox::NoButtons);
        auto* mode = shown.editor->findChild<QComboBox*>(isLaserOn ? "cbxStartMode" : "cbxRampType");
        mode->setCurrentIndex(1);
        QVERIFY(shown.hasRow());
        mode->setCurrentIndex(0);
        QVERIFY(!shown.hasRow());
        // LaserOn asks for a parameter set.
        shown.editor->findChild<QComboBox*>("cbxLaserDataID")->clear();
        QCOMPARE(shown.editor->CheckInsert(), !isLaserOn);
        QCOMPARE(shown.editor->CheckReplace(), !isLaserOn);
    }
}

void TestInstructionEditors::fixedLine()
{
    FakeHost host;
    RlRegistry::instance().clear();
    const RlLaserWeldDefine registrar(nullptr);
    const QList<RlInstruction> all = RlRegistry::instance().instructions();
    QStringList written;
    for (const RlInstruction& one : all) {
        for (const RLContentFactory& factory : {one.insertFactory, one.propertyFactory}) {
            if (one.name.endsWith("Off")) {
                const std::unique_ptr<RLContentBase> editor(factory());
                editor->FillWith("LaserOn(\"LsData1\");");
                QVERIFY(editor->CheckInsert() && editor->CheckReplace());
                QCOMPARE(editor->findChild<QLabel*>()->text(), QString("No parameters."));
                written.append(editor->ToString());
            }
        }
    }
    QCOMPARE(written.join(' '), QString("LaserOff(); LaserOff(); LsParaMatchOff(); LsParaMatchOff();"));
}

void TestInstructionEditors::generic()
{
    RLCustomInsertWidget insert("Ins%1", nullptr);
    RLCustomPropretyWidget property("Ins%1", nullptr);
    for (RLContentBase* editor : {static_cast<RLContentBase*>(&insert), static_cast<RLContentBase*>(&property)}) {
        FakeHost host;
        QCOMPARE(editor->ToString(), QString("Ins%1 ,"));
        editor->findChild<QLineEdit*>("line1")->setText("1%2");
        editor->findChild<QLineEdit*>("line2")->setText(" b");
        editor->FillWith("Ins%1 8,9");
        QCOMPARE(editor->ToString(), QString("Ins%1 1%2, b"));
        QCOMPARE(editor->CheckInsert(), editor == &insert);
        QCOMPARE(editor->CheckReplace(), editor == &property);
        QCOMPARE(host.logs.size(), 1);
        QVERIFY(host.logs[0].tag.startsWith("[D|"));
        QCOMPARE(host.logs[0].items.join('|'), QString("RLCustomInsertWidget::FillWith : |Ins%1| : |Ins%1 8,9"));
    }
}

/// No exception leaves FillWith, whatever an editor's lists set off.
void TestInstructionEditors::exceptions()
{
    FakeHost host;
    host.io["zone"] = QStringList{"fine", "z8", "z9"};
    const struct {
        RLContentBase* editor;
        const char* list;
        const char* line;
        const char* unknown;
    } rows[] = {
        {new RLLaserOnInsertWidget("LaserOn", nullptr), "cbxLaserDataID", "f(LsData%1)", " unknown exception"},
        {new RLParaSetInsertWidget("LsParaSet", nullptr), "cbxLaserDataID", "f(LsData%1)",
         "Caught an unknown exception!"},
        {new WMoveLPropertyWidget, "cbxZone", "f(p1,v,z%1,t)", " Caught an unknown exception!"},
    };
    for (const auto& row : rows) {
        const std::unique_ptr<RLContentBase> editor(row.editor);
        bool isStandard = true;
        connect(editor->findChild<QComboBox*>(row.list), &QComboBox::currentTextChanged, [&isStandard] {
            if (isStandard) {
                throw std::runtime_error("broken");
            }
            throw 7;
        });
        const QString line = row.line;
        editor->FillWith(line.arg(8));
        QCOMPARE(host.logs.last().items.join('|'), QString("LASER::|FillWith| std::exception:|broken"));
        isStandard = false;
        editor->FillWith(line.arg(9));
        QCOMPARE(host.logs.last().items, QStringList{row.unknown});
        QVERIFY(host.logs.last().tag.startsWith("[W|"));
    }
}

QTEST_MAIN(TestInstructionEditors)
#include "tst_instructioneditors.moc"
