#include "rl/pointargument.h"
#include "rl/setuppointwidget.h"
#include "tests/formdriver.h"
#include "tests/weldcell.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace
{

struct Point {
    Cell cell;
    SetUpPointWidget widget{nullptr};
    FormDriver form{&widget};

    explicit Point(const QStringList& points = {"p1", "p2"}) : cell(points)
    {
        widget.refreshPointList();
        widget.show();
    }
    QComboBox* list() const { return form.find<QComboBox>("cbxPoint"); }
    /// "plain", or which expression is on, by all that shows it.
    QString mode() const
    {
        const bool offs = isSelected("btnOffs");
        const bool relTool = isSelected("btnReltool");
        const QWidget* numbers = form.find("wgtPointParam");
        bool isRight = numbers->isVisibleTo(&widget) == (offs || relTool);
        for (const char* name : {"lblAngle", "lblA", "sbxA", "lblB", "sbxB", "lblC", "sbxC"}) {
            isRight = isRight && (!(offs || relTool) || form.find(name)->isVisibleTo(numbers) == relTool);
        }
        return !isRight ? "wrong" : offs && relTool ? "both" : offs ? "offs" : relTool ? "reltool" : "plain";
    }
    bool isSelected(const char* name) const { return form.find(name)->styleSheet().contains("194, 37, 43"); }
};

} // namespace

class TestSetUpPointWidget : public QObject
{
    Q_OBJECT

private slots:
    void freshNames();
    void expressions_data();
    void expressions();
    void modeButtons();
    void pointArguments();
    void savePoint();
};

void TestSetUpPointWidget::freshNames()
{
    const struct {
        QStringList names;
        const char* first;
        const char* second;
        const char* prefix;
    } rows[] = {
        {{"p4", "p2", "p1"}, "p3", "p5", "p"},
        {{"p01", "p1", "p0002"}, "p3", "p4", "p"},
        {{"P1", "p1a", "q1", "xp1", "p", "p-1", "p1.0", "p 1", "p0", "p99999999999"}, "p1", "p2", "p"},
        {{QString("p") + QChar(0x661)}, "p1", "p2", "p"},
        {{"a1"}, "(a)2", "(a)3", "(a)"},
        {{"%11"}, "%12", "%13", "%1"},
    };
    for (const auto& row : rows) {
        QCOMPARE(SetUpPointWidget::getNewName(row.names, row.prefix, 1), QString(row.first));
        QCOMPARE(SetUpPointWidget::getNewName(row.names, row.prefix, 2), QString(row.second));
    }
    const QString none = SetUpPointWidget::getNewPointPName({}, 0);
    QVERIFY(none.isEmpty() && !none.isNull());
}

void TestSetUpPointWidget::expressions_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("result"); // behind RelTool(p9,1,2,3,4,5,6)
    QTest::addColumn<QString>("warning");
    const auto row = [](const char* text, const char* result, const char* warning = "") {
        QTest::newRow(text) << text << result << warning;
    };
    const char* before = "RelTool(p9,1,2,3,4,5,6)";
    row("any name %1", "RelTool(any name %1,1,2,3,4,5,6)"); // a name leaves the expression as it is
    row("Offs(p7,10,0,-2.5)", "Offs(p7,10,0,-2.5)");
    row("OFFS ( %2 , x , 12.50 , 1e3 );", "Offs(%2,0,12.5,1000)");
    row("Offs(p1,nan,inf,-9999999)", "Offs(p1,0,0,-999999)");
    row("Offs(p1,-0.0000001,0.00012345678,1234567)", "Offs(p1,0,0.000123,999999)");
    row("reltool(p7,1.5,0,0,-90,y,180)", "RelTool(p7,1.5,0,0,-90,0,180)");
    row("Offs(p7,1,2,3,4)", before, "):Offs paramter number invalid");
    row("RelTool(p7,1,2,3)", before, "):RelTool paramter number invalid");
    row("Other(p7,1,2,3)", before);
    row("p7)", before, "):ExtractFunctionAndParameters failed");
}

void TestSetUpPointWidget::expressions()
{
    QFETCH(QString, text);
    QFETCH(QString, result);
    Point point;
    point.widget.setPointText("RelTool(p9,1,2,3,4,5,6)");
    point.cell.forget();
    point.widget.setPointText(text);
    QCOMPARE(point.widget.getResult(), result);
    checkWarning(point.cell);
    QCOMPARE(point.form.find<QDoubleSpinBox>("sbxC")->value() == 0.0, result.startsWith("Offs"));
    // A fresh widget reads what was written, with nothing left over from another mode.
    Point fresh;
    fresh.widget.setPointText(result);
    QCOMPARE(fresh.widget.getResult(), result);
    QCOMPARE(fresh.mode(), QString(result.startsWith("Offs") ? "offs" : "reltool"));
}

void TestSetUpPointWidget::modeButtons()
{
    Point point;
    QCOMPARE(point.mode(), QString("plain"));
    const auto press = [&](const char* button, const char* mode, const char* result) {
        // What is left here must be gone once a mode begins.
        for (const char* box : {"sbxX", "sbxY", "sbxZ", "sbxA", "sbxB", "sbxC"}) {
            point.form.find<QDoubleSpinBox>(box)->setValue(7);
        }
        point.form.press(button);
        QCOMPARE(point.mode(), QString(mode));
        QCOMPARE(point.widget.getResult(), QString(result));
    };
    press("btnOffs", "offs", "Offs(p3,0,0,0)");
    press("btnOffs", "plain", "p3");
    press("btnReltool", "reltool", "RelTool(p3,0,0,0,0,0,0)");
    press("btnReltool", "plain", "p3");
    press("btnReltool", "reltool", "RelTool(p3,0,0,0,0,0,0)");
    press("btnOffs", "offs", "Offs(p3,0,0,0)");
    point.form.type("sbxZ", "10.123456");
    QCOMPARE(point.widget.getResult(), QString("Offs(p3,0,0,10.1235)"));
    // Reading the points again leaves the mode alone.
    point.widget.refreshPointList();
    QCOMPARE(point.mode(), QString("offs"));
    // No completion: a new "P1" is not the existing "p1".
    QLineEdit* line = point.list()->lineEdit();
    line->setFocus();
    line->selectAll();
    QTest::keyClicks(line, "P1");
    QTest::keyClick(line, Qt::Key_Return);
    QCOMPARE(point.widget.getResult(), QString("Offs(P1,0,0,10.1235)"));
    QCOMPARE(point.list()->count(), 2);
}

void TestSetUpPointWidget::pointArguments()
{
    const QStringList names{"p1", "a b", "a/b", "%1", "a'b", QString::fromUtf8("点")};
    const QStringList expressions{"Offs(p1,0,0,5)", "f(g(a,b),c)", "(a)"};
    QStringList neither{"",    " ",  " a",   "a\u00a0", "a,b", "a(b", "a)b",        ")(",
                        "a\"", ";a", "a//b", "a),b(c",  "((a", "a))", "p1); f(\"a", QString(QChar(0xd800))};
    for (const ushort code : {0x0, 0x9, 0xa, 0xb, 0xd, 0x85, 0x2028, 0x2029}) {
        neither.append(QString("a") + QChar(code) + 'b');
    }
    for (const QString& text : names + expressions + neither) {
        const QByteArray shown = text.toUtf8().toPercentEncoding();
        QVERIFY2(isPointName(text) == names.contains(text), shown);
        QVERIFY2(isPointArgument(text) != neither.contains(text), shown);
    }
}

void TestSetUpPointWidget::savePoint()
{
    const struct {
        const char* typed;
        bool isStored;
        QStringList pointsByThen;
    } rows[] = {
        {"p1", false, {}},                                       // listed, gone by now
        {"P1", true, {"p1"}},       {"p7", false, {"p1", "p7"}}, // added by someone else
        {"p8", true, {"p1", "P8"}}, {"%1%2", true, {"p1"}},      {"", false, {"p1"}}, {"Offs(p1,0,0,5)", false, {"p1"}},
    };
    for (const auto& row : rows) {
        Point point({"p1"});
        const QString typed = row.typed;
        point.list()->setEditText(typed);
        point.cell.io["point"] = row.pointsByThen;
        point.cell.forget();
        point.widget.savePoint("gun", "table");
        QCOMPARE(point.cell.calls.join('\n'),
                 row.isStored ? "addCurrentPoint " + typed + " false gun table" : QString());
        const QString log = point.cell.logs.isEmpty() ? "" : point.cell.logs[0].items.join('|');
        QCOMPARE(log, QString(typed == "p7" ? "Point|p7|already exists, skip adding." : ""));
    }
}

QTEST_MAIN(TestSetUpPointWidget)
#include "tst_setuppointwidget.moc"
