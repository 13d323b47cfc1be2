#include "pendix/rl.h"
#include "rl/setuppointwidget.h"
#include "rl/wmovecfinsertwidget.h"
#include "rl/wmovecfpropertywidget.h"
#include "rl/wmovecinsertwidget.h"
#include "rl/wmovecpropertywidget.h"
#include "rl/wmovelinsertwidget.h"
#include "rl/wmovelpropertywidget.h"
#include "tests/fakehost.h"
#include "tests/formdriver.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QTest>

#include <memory>

namespace
{

/// A controller with some data of each kind.
struct Cell : FakeHost {
    explicit Cell(const QStringList& points = {"p1", "p2"})
    {
        io["point"] = points;
        io["speed"] = QStringList{"v100", "v5"};
        io["zone"] = QStringList{"z10", "fine"};
        io["tool"] = QStringList{"tool0", "gun"};
        io["wobj"] = QStringList{"table", "wobj0"};
        nodes["tool"] = "gun";
        nodes["wobj"] = "wobj0";
    }

    QStringList warnings() const
    {
        QStringList found;
        for (const pendix::LogStatement& statement : logs) {
            if (statement.tag.startsWith("[W|")) {
                found.append(statement.items.join('|'));
            }
        }
        return found;
    }
};

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
    bool isShown(const char* name) const { return form.find(name)->isVisibleTo(form.find("wgtPointParam")); }
    /// "plain", or which expression is on, by all that shows it.
    QString mode() const
    {
        const bool offs = isSelected("btnOffs");
        const bool relTool = isSelected("btnReltool");
        for (const char* name : {"lblAngle", "lblA", "sbxA", "lblB", "sbxB", "lblC", "sbxC"}) {
            if ((offs || relTool) && isShown(name) != relTool) {
                return "wrong rotation";
            }
        }
        if (form.find("wgtPointParam")->isVisibleTo(&widget) != (offs || relTool)) {
            return "wrong numbers";
        }
        return offs && relTool ? "both" : offs ? "offs" : relTool ? "reltool" : "plain";
    }
    bool isSelected(const char* name) const { return form.find(name)->styleSheet().contains("194, 37, 43"); }
};

template <typename T>
pendix::RLContentBase* make()
{
    return new T(nullptr);
}

/// By instruction and role: "LI" inserts an LsMoveL line, "CFP" changes an LsMoveCF line.
pendix::RLContentBase* create(const QString& kind)
{
    static const QMap<QString, pendix::RLContentBase* (*)()> all{
        {"LI", make<WMoveLInsertWidget>},   {"LP", make<WMoveLPropertyWidget>}, {"CI", make<WMoveCInsertWidget>},
        {"CP", make<WMoveCPropertyWidget>}, {"CFI", make<WMoveCFInsertWidget>}, {"CFP", make<WMoveCFPropertyWidget>}};
    return all.value(kind)();
}

using Editor = std::unique_ptr<pendix::RLContentBase>;

void typePoint(const Editor& editor, const char* widget, const QString& name)
{
    editor->findChild<SetUpPointWidget*>(widget)->setPointText(name);
}

/// The column "warning" is how the only warning ends; empty: there is none.
void checkWarning(const Cell& cell)
{
    QFETCH(QString, warning);
    QCOMPARE(cell.warnings().size(), warning.isEmpty() ? 0 : 1);
    QVERIFY(warning.isEmpty() || cell.warnings().first().endsWith(warning));
}

} // namespace

class TestMotionEditors : public QObject
{
    Q_OBJECT

private slots:
    void freshNames_data();
    void freshNames();
    void expressions_data();
    void expressions();
    void modeButtons();
    void typedNames();
    void savePoint_data();
    void savePoint();
    void emptyLists();
    void freshEditors_data();
    void freshEditors();
    void fill_data();
    void fill();
    void storing();
    void levels_data();
    void levels();
    void notRoundTrips_data();
    void notRoundTrips();
    void pointsLineUp();
};

void TestMotionEditors::freshNames_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QString>("prefix");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    const auto row = [](const char* name, const QStringList& names, const char* first, const char* second,
                        const char* prefix = "p") { QTest::newRow(name) << names << prefix << first << second; };
    row("none", {}, "p1", "p2");
    row("gap", {"p1", "p2", "p4"}, "p3", "p5");
    row("other order", {"p4", "p2", "p1"}, "p3", "p5");
    row("leading zeros", {"p01", "p0002"}, "p3", "p4");
    row("twice", {"p1", "p01"}, "p2", "p3");
    row("none of these", {"P1", "p1a", "q1", "xp1", "p", "p-1", "p1.0", "p 1", "p0", "p99999999999"}, "p1", "p2");
    QTest::newRow("digits of other scripts") << QStringList{QString("p") + QChar(0x661)} << "p"
                                             << "p1"
                                             << "p2";
    row("prefix", {"w1", "p2"}, "w2", "w3", "w");
    row("expression as prefix", {"a1", "b2", "[ab]4"}, "[ab]3", "[ab]4", "[ab]");
    row("group as prefix", {"a1"}, "(a)2", "(a)3", "(a)");
    row("percent sign", {"%11"}, "%12", "%13", "%1");
}

void TestMotionEditors::freshNames()
{
    QFETCH(QStringList, names);
    QFETCH(QString, prefix);
    QTEST(SetUpPointWidget::getNewName(names, prefix, 1), "first");
    QTEST(SetUpPointWidget::getNewName(names, prefix, 2), "second");
    for (const int below : {0, -1}) {
        const QString none = SetUpPointWidget::getNewPointPName(names, below);
        QVERIFY(none.isEmpty() && !none.isNull());
    }
}

void TestMotionEditors::expressions_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("result"); // behind RelTool(p9,1,2,3,4,5,6)
    QTest::addColumn<QString>("warning");
    const QString before = "RelTool(p9,1,2,3,4,5,6)";
    const auto taken = [](const char* text, const char* result) { QTest::newRow(text) << text << result << ""; };
    const auto refused = [&](const char* text, const char* warning) {
        QTest::newRow(text) << text << before << warning;
    };
    taken("p7", "RelTool(p7,1,2,3,4,5,6)"); // a name leaves the expression as it is
    taken("any name %1", "RelTool(any name %1,1,2,3,4,5,6)");
    taken("Offs(p7,10,0,-2.5)", "Offs(p7,10,0,-2.5)");
    taken("offs ( p7 , x , 12.50 , 1e3 );", "Offs(p7,0,12.5,1000)");
    taken("OFFS(%2,1,2,3)", "Offs(%2,1,2,3)");
    taken("Offs(p1,nan,inf,-9999999)", "Offs(p1,0,0,-999999)");
    taken("Offs(p1,-0.0000001,0.00012345678,1234567)", "Offs(p1,0,0.000123,999999)");
    taken("reltool(p7,1.5,0,0,-90,y,180)", "RelTool(p7,1.5,0,0,-90,0,180)");
    refused("Offs(p7,1,2)", "):Offs paramter number invalid");
    refused("Offs(p7,1,2,3,4)", "):Offs paramter number invalid");
    refused("Offs(p7,1,,3)", "):Offs paramter number invalid");
    refused("RelTool(p7,1,2,3)", "):RelTool paramter number invalid");
    refused("RelTool()", "):RelTool paramter number invalid");
    refused("Other(p7,1,2,3)", "");
    refused("Offs(p7,1,2,3", "):ExtractFunctionAndParameters failed");
    refused("p7)", "):ExtractFunctionAndParameters failed");
}

void TestMotionEditors::expressions()
{
    QFETCH(QString, text);
    Point point;
    point.widget.setPointText("RelTool(p9,1,2,3,4,5,6)");
    point.cell.forget();
    point.widget.setPointText(text);
    QTEST(point.widget.getResult(), "result");
    checkWarning(point.cell);
    QFETCH(QString, result);
    if (result.startsWith("Offs")) { // the other button stays as it was
        QVERIFY(point.isSelected("btnOffs") && !point.isShown("sbxA"));
        QCOMPARE(point.form.find<QDoubleSpinBox>("sbxC")->value(), 0.0);
    } else {
        QCOMPARE(point.mode(), QString("reltool"));
    }
    // A fresh widget reads what was written, with nothing left over from another mode.
    Point fresh;
    fresh.widget.setPointText(result);
    QCOMPARE(fresh.widget.getResult(), result);
    QCOMPARE(fresh.mode(), QString(result.startsWith("Offs") ? "offs" : "reltool"));
}

void TestMotionEditors::modeButtons()
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
    press("btnOffs", "offs", "Offs(p3,0,0,0)");
    press("btnReltool", "reltool", "RelTool(p3,0,0,0,0,0,0)");
    press("btnReltool", "plain", "p3");
    point.form.press("btnOffs");
    point.form.type("sbxY", "-12.5");
    point.form.type("sbxZ", "10.123456");
    QCOMPARE(point.widget.getResult(), QString("Offs(p3,0,-12.5,10.1235)"));
    // Reading the points again leaves the mode alone.
    point.widget.refreshPointList();
    QCOMPARE(point.mode(), QString("offs"));
}

void TestMotionEditors::typedNames()
{
    Point point;
    QCOMPARE(point.list()->lineEdit()->text(), QString("p3"));
    for (const QString name : {"P1", "weld", "p"}) {
        QLineEdit* line = point.list()->lineEdit();
        line->setFocus();
        line->selectAll();
        QTest::keyClicks(line, name);
        QTest::keyClick(line, Qt::Key_Return);
        QCOMPARE(point.widget.getResult(), name);
        QTest::keyClick(line, Qt::Key_Tab);
        QCOMPARE(point.widget.getResult(), name);
        QCOMPARE(point.list()->count(), 2);
    }
}

void TestMotionEditors::savePoint_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QStringList>("pointsByThen");
    QTest::addColumn<QString>("call");
    const QString stored = "addCurrentPoint %1 false gun table";
    const auto row = [&](const char* name, const QString& typed, bool isStored, const QStringList& points = {"p1"}) {
        QTest::newRow(name) << typed << points << (isStored ? QString(stored).replace("%1", typed) : QString());
    };
    row("new", "p7", true);
    row("listed", "p1", false);
    row("listed, gone by now", "p1", false, {});
    row("listed, other case", "P1", true);
    row("added by someone else", "p7", false, {"p1", "p7"});
    row("added in other case", "p7", true, {"p1", "P7"});
    row("percent sign", "%1%2", true);
    row("empty", "", false);
    row("blank", "  ", false);
}

void TestMotionEditors::savePoint()
{
    QFETCH(QString, typed);
    QFETCH(QStringList, pointsByThen);
    Point point({"p1"});
    point.widget.setPointText(typed);
    point.cell.io["point"] = pointsByThen;
    point.cell.forget();
    point.widget.savePoint("gun", "table");
    QTEST(point.cell.calls.join('\n'), "call");
    const bool isTold = typed == "p7" && pointsByThen.contains("p7");
    QCOMPARE(point.cell.logs.size(), isTold ? 1 : 0);
    if (isTold) {
        QCOMPARE(point.cell.logs[0].items.join('|'), QString("Point|p7|already exists, skip adding."));
    }
}

void TestMotionEditors::emptyLists()
{
    Cell cell;
    SetUpPointWidget::initPointListCbx(nullptr, "p1");
    QComboBox box;
    box.setEditable(true);
    SetUpPointWidget::initPointListCbx(&box, QString());
    QCOMPARE(box.currentText(), QString("p1"));
    SetUpPointWidget::initPointListCbx(&box, "");
    QCOMPARE(box.currentText(), QString(""));
    QCOMPARE(box.count(), 2);
    // Without "wobj0" a missing work object is the first one.
    cell.io["wobj"] = QStringList{"bench", "table"};
    const Editor property(create("LP"));
    property->findChild<QComboBox*>("cbxWobj")->setCurrentText("table");
    property->FillWith("LsMoveL(p1, v5, fine, tool0);");
    QVERIFY(property->ToString().endsWith(", bench);"));
    // A controller without any data.
    cell.io.clear();
    cell.nodes.clear();
    const Editor editor(create("CFI"));
    QCOMPARE(editor->ToString(), QString("LsMoveCF(p1, p2, 360, \"RotAxis\", NULL, , , );"));
}

void TestMotionEditors::freshEditors_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QStringList>("points");
    QTest::addColumn<QString>("line");
    for (const QString role : {"I", "P"}) {
        const auto row = [&role](const char* kind, const QStringList& points, const char* line) {
            QTest::addRow("%s%s, %d points", kind, qPrintable(role), points.size()) << kind + role << points << line;
        };
        row("L", {"p1", "p2"}, "LsMoveL(p3, NULL, z10, gun, wobj0);");
        row("C", {}, "LsMoveC(p1, p2, NULL, z10, gun, wobj0);");
        row("C", {"p2"}, "LsMoveC(p1, p3, NULL, z10, gun, wobj0);");
        row("CF", {"p1", "p2", "p4"}, "LsMoveCF(p3, p5, 360, \"RotAxis\", NULL, z10, gun, wobj0);");
    }
}

void TestMotionEditors::freshEditors()
{
    QFETCH(QString, kind);
    QFETCH(QStringList, points);
    Cell cell(points);
    const Editor editor(create(kind));
    QTEST(editor->ToString(), "line");
    QCOMPARE(cell.calls.isEmpty(), kind.endsWith('P'));
    if (kind == "LI") {
        QCOMPARE(editor->ToString(), QString("LsMoveL(p4, NULL, z10, gun, wobj0);"));
    }
    QCOMPARE(editor->findChild<QComboBox*>("cbxSpeed")->count(), 3);
    // What the controller uses counts only when its list has exactly that name.
    cell.nodes["tool"] = "GUN";
    cell.nodes["wobj"] = "none";
    const Editor other(create(kind));
    QVERIFY(other->ToString().endsWith(", NULL, z10, tool0, table);"));
}

void TestMotionEditors::fill_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("written");
    QTest::addColumn<QString>("warning");
    const auto row = [](const char* kind, const char* line, const char* written, const QByteArray& warning = "") {
        QTest::newRow(line) << kind << line << written << QString(warning);
    };
    const QByteArray missing = " Missing required parameters! params:|";
    row("LP", "LsMoveL(p1, v5, fine, tool0, table);", "LsMoveL(p1, v5, fine, tool0, table);");
    row("LP", "LsMoveL(p1, v5, fine, tool0);", "LsMoveL(p1, v5, fine, tool0, wobj0);");
    row("LP", "LsMoveL(p1, v5, fine, tool0, none);", "LsMoveL(p1, v5, fine, tool0, wobj0);");
    row("LP", "LsMoveL(p1, v5, fine, tool0, TABLE);", "LsMoveL(p1, v5, fine, tool0, wobj0);");
    row("LP", "f(p1,V5,none,TOOL0,table,more)", "LsMoveL(p1, v100, z10, gun, table);");
    row("LP", "LsMoveL(Offs(p1,10,0,0), NULL, z10, gun)", "LsMoveL(Offs(p1,10,0,0), NULL, z10, gun, wobj0);");
    row("LP", "LsMoveL(Offs(p1,10), v5, fine, tool0)", "LsMoveL(p3, v5, fine, tool0, wobj0);",
        "):Offs paramter number invalid");
    row("LP", "LsMoveL(new, v5, fine, tool0)", "LsMoveL(new, v5, fine, tool0, wobj0);");
    row("LP", "LsMoveL(p1, v5, fine);", "LsMoveL(p3, v100, z10, gun, table);", missing + "(p1, v5, fine)");
    row("LP", "LsMoveL(p1, v5, fine, tool0); // text", "LsMoveL(p3, v100, z10, gun, table);");
    row("CP", "LsMoveC(RelTool(p1,0,0,1,0,90,0), p2, v5, fine, tool0, wobj0);",
        "LsMoveC(RelTool(p1,0,0,1,0,90,0), p2, v5, fine, tool0, wobj0);");
    row("CP", "LsMoveC(p1, p2, v5, fine, tool0);", "LsMoveC(p1, p2, v5, fine, tool0, wobj0);");
    row("CP", "LsMoveC(p1, v5, fine, tool0);", "LsMoveC(p3, p4, v100, z10, gun, table);",
        missing + "(p1, v5, fine, tool0)");
    row("CFP", "LsMoveCF(p1, p2, -90.5, \"FixedAxis\", v5, fine, tool0, table);",
        "LsMoveCF(p1, p2, -90.5, \"FixedAxis\", v5, fine, tool0, table);");
    row("CFP", "LsMoveCF(p1, p2, 7200, ConstPose, v5, fine, tool0);",
        "LsMoveCF(p1, p2, 3600, \"ConstPose\", v5, fine, tool0, wobj0);");
    row("CFP", "LsMoveCF(p1, p2, -400, \"Other\", v5, fine, tool0);",
        "LsMoveCF(p1, p2, -359, \"RotAxis\", v5, fine, tool0, wobj0);");
    row("CFP", "LsMoveCF(p1, p2, x, \"constpose\", v5, fine, tool0);",
        "LsMoveCF(p1, p2, 0, \"RotAxis\", v5, fine, tool0, wobj0);");
    row("CFP", "LsMoveCF(p1, p2, 90, v5, fine, tool0);", "LsMoveCF(p3, p4, 360, \"RotAxis\", v100, z10, gun, table);",
        missing + "(p1, p2, 90, v5, fine, tool0)");
}

void TestMotionEditors::fill()
{
    QFETCH(QString, kind);
    QFETCH(QString, line);
    Cell cell;
    const Editor editor(create(kind));
    editor->findChild<QComboBox*>("cbxSpeed")->setCurrentText("v100");
    editor->findChild<QComboBox*>("cbxWobj")->setCurrentText("table");
    cell.forget();
    editor->FillWith(line);
    QTEST(editor->ToString(), "written");
    checkWarning(cell);
    QVERIFY(cell.calls.isEmpty());
}

void TestMotionEditors::storing()
{
    Cell cell;
    const QMap<QString, QStringList> widgets{{"LI", {"wgtTargetPoint"}},
                                             {"CI", {"wgtAuxPoint", "wgtTargetPoint"}},
                                             {"CFI", {"wgtAuxPoint1", "wgtAuxPoint2"}}};
    for (auto it = widgets.begin(); it != widgets.end(); ++it) {
        cell.io["point"] = QStringList{"p1", "p2"};
        const Editor editor(create(it.key()));
        // The lists may show another tool: points are stored in the active one.
        editor->findChild<QComboBox*>("cbxTool")->setCurrentText("tool0");
        QStringList names;
        QStringList expected;
        for (const QString& widget : it.value()) {
            names.append("Weld" + QString::number(names.size()));
            expected.append("addCurrentPoint " + names.last() + " false gun wobj0");
            typePoint(editor, qPrintable(widget), names.last());
        }
        cell.forget();
        QStringList pointsWhenRead;
        cell.onCall = [&](const QString& call) {
            if (call == "points") {
                pointsWhenRead.append(QString::number(cell.calls.size()));
            }
        };
        const QString line = editor->ToString();
        QVERIFY(line.contains('(' + names.join(", ") + ", ") && line.endsWith(", NULL, z10, tool0, wobj0);"));
        cell.onCall = nullptr;
        QCOMPARE(cell.calls, expected);
        // One look each before storing, then two reads a list, all of them with every point.
        const int points = names.size();
        QCOMPARE(pointsWhenRead.size(), 3 * points);
        QCOMPARE(pointsWhenRead.mid(points), QVector<QString>(2 * points, QString::number(points)).toList());
        for (const QString& widget : it.value()) {
            const auto* list = editor->findChild<SetUpPointWidget*>(widget)->findChild<QComboBox*>("cbxPoint");
            QVERIFY(list->findText(names.last()) >= 0);
            QCOMPARE(list->currentText(), QString(widget == it.value().first() ? "p3" : "p4"));
        }
    }
    // The same new name twice is stored once.
    cell.forget();
    const Editor editor(create("CI"));
    typePoint(editor, "wgtAuxPoint", "same");
    typePoint(editor, "wgtTargetPoint", "Offs(same,0,0,5)");
    QVERIFY(editor->ToString().startsWith("LsMoveC(same, Offs(same,0,0,5), "));
    QCOMPARE(cell.calls, QStringList{"addCurrentPoint same false gun wobj0"});
}

void TestMotionEditors::levels_data()
{
    QTest::addColumn<QString>("kind");
    for (const char* kind : {"LI", "LP", "CI", "CP", "CFI", "CFP"}) {
        QTest::newRow(kind) << kind;
    }
}

void TestMotionEditors::levels()
{
    QFETCH(QString, kind);
    Cell cell;
    const Editor editor(create(kind));
    const bool isInsert = kind.endsWith('I');
    for (const int level : {-1, 0, 2, 3, 4}) {
        cell.level = level;
        QCOMPARE(editor->CheckInsert(), isInsert && level > 2);
        QCOMPARE(editor->CheckReplace(), !isInsert && level > 2);
        cell.forget();
        QVERIFY(editor->ToString().contains(isInsert && level > 3 ? "(p" : "(p3, "));
        QCOMPARE(cell.calls.isEmpty(), !isInsert || level <= 2);
        QVERIFY(cell.messages.isEmpty());
    }
    // An insert editor reads nothing. Below level 3 two of its texts can be compared.
    cell.level = 2;
    const QString before = editor->ToString();
    const QString point = kind.startsWith('L') ? "a" : kind.size() == 3 ? "a, b, 90, \"FixedAxis\"" : "a, b";
    editor->FillWith("f(" + point + ", v5, fine, tool0, table);");
    QCOMPARE(editor->ToString() == before, isInsert);
}

void TestMotionEditors::notRoundTrips_data()
{
    QTest::addColumn<QString>("point"); // typed by hand or held by the controller
    QTest::addColumn<QString>("written");
    QTest::addColumn<QString>("readBack");
    const auto row = [](const char* name, const char* point, const char* written, const char* readBack) {
        QTest::newRow(name) << point << written << readBack;
    };
    const char* defaults = "LsMoveL(p3, NULL, z10, gun, wobj0);";
    row("six digits", "Offs(p1,1234.5678,0,0)", "LsMoveL(Offs(p1,1234.57,0,0), NULL, z10, gun, wobj0);",
        "LsMoveL(Offs(p1,1234.57,0,0), NULL, z10, gun, wobj0);");
    row("comma", "a,b", "LsMoveL(a,b, NULL, z10, gun, wobj0);", "LsMoveL(a, NULL, z10, gun, wobj0);");
    row("opened", "a(b", "LsMoveL(a(b, NULL, z10, gun, wobj0);", defaults);
    row("closed", "a)b", "LsMoveL(a)b, NULL, z10, gun, wobj0);", defaults);
    row("empty", "", "LsMoveL(, NULL, z10, gun, wobj0);", "LsMoveL(NULL, NULL, z10, gun, wobj0);");
    row("blanks around", " a ", "LsMoveL( a , NULL, z10, gun, wobj0);", "LsMoveL(a, NULL, z10, gun, wobj0);");
}

void TestMotionEditors::notRoundTrips()
{
    QFETCH(QString, point);
    QFETCH(QString, written);
    Cell cell;
    const Editor first(create("LP"));
    if (point.startsWith("Offs")) {
        typePoint(first, "wgtTargetPoint", point);
    } else {
        first->findChild<QComboBox*>("cbxPoint")->setCurrentText(point);
    }
    QCOMPARE(first->ToString(), written);
    const Editor second(create("LP"));
    second->FillWith(written);
    QTEST(second->ToString(), "readBack");
}

/// Also when the texts have grown after the form was made.
void TestMotionEditors::pointsLineUp()
{
    Cell cell({"p1"});
    const Editor editor(create("CP"));
    editor->show();
    for (const int size : {10, 20}) {
        editor->setStyleSheet(QStringLiteral("QLabel{font-size:%1px}").arg(size));
        QCoreApplication::sendPostedEvents();
        QList<int> begins;
        for (const auto* point : editor->findChildren<SetUpPointWidget*>()) {
            begins.append(point->findChild<QComboBox*>("cbxPoint")->x());
        }
        QCOMPARE(begins.size(), 2);
        QCOMPARE(begins.first(), begins.last());
    }
}

QTEST_MAIN(TestMotionEditors)
#include "tst_motioneditors.moc"
