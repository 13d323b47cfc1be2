#include "pendix/rl.h"
#include "rl/setuppointwidget.h"
#include "rl/wmovecfinsertwidget.h"
#include "rl/wmovecfpropertywidget.h"
#include "rl/wmovecinsertwidget.h"
#include "rl/wmovecpropertywidget.h"
#include "rl/wmovelinsertwidget.h"
#include "rl/wmovelpropertywidget.h"
#include "tests/formdriver.h"
#include "tests/takenaway.h"
#include "tests/weldcell.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <functional>
#include <memory>

namespace
{

/// By instruction and role: "LI" inserts an LsMoveL line, "CFP" changes an LsMoveCF line.
pendix::RLContentBase* create(const QString& kind)
{
    const bool isInsert = kind.endsWith('I');
    if (kind.startsWith("CF")) {
        return isInsert ? static_cast<pendix::RLContentBase*>(new WMoveCFInsertWidget) : new WMoveCFPropertyWidget;
    }
    if (kind.startsWith('C')) {
        return isInsert ? static_cast<pendix::RLContentBase*>(new WMoveCInsertWidget) : new WMoveCPropertyWidget;
    }
    return isInsert ? static_cast<pendix::RLContentBase*>(new WMoveLInsertWidget) : new WMoveLPropertyWidget;
}

using Editor = std::unique_ptr<pendix::RLContentBase>;

} // namespace

class TestMotionEditors : public QObject
{
    Q_OBJECT

private slots:
    void lists();
    void freshEditors();
    void fill_data();
    void fill();
    void storing();
    void checks();
    void meanwhile();
    void takenAway();
    void pointsLineUp();
};

void TestMotionEditors::lists()
{
    Cell cell;
    SetUpPointWidget::initPointListCbx(nullptr, "p1");
    QComboBox box;
    box.setEditable(true);
    SetUpPointWidget::initPointListCbx(&box, QString());
    QCOMPARE(box.currentText(), QString("p1"));
    SetUpPointWidget::initPointListCbx(&box, "");
    QVERIFY(box.currentText().isEmpty() && box.count() == 2);
    // Without "wobj0" a missing work object is the first one.
    cell.io["wobj"] = QStringList{"bench", "table"};
    const Editor property(create("LP"));
    property->findChild<QComboBox*>("cbxWobj")->setCurrentText("table");
    property->FillWith("LsMoveL(p1, v5, fine, tool0);");
    QVERIFY(property->ToString().endsWith(", bench);"));
    // A controller without any data.
    cell.io.clear();
    cell.nodes.clear();
    QCOMPARE(Editor(create("CFI"))->ToString(), QString("LsMoveCF(p1, p2, 360, \"RotAxis\", NULL, , , );"));
}

void TestMotionEditors::freshEditors()
{
    const struct {
        const char* kind;
        QStringList points;
        const char* line;
    } rows[] = {
        {"L", {"p1", "p2"}, "LsMoveL(p3, NULL, z10, gun, wobj0);"},
        {"C", {"p2"}, "LsMoveC(p1, p3, NULL, z10, gun, wobj0);"},
        {"CF", {"p1", "p2", "p4"}, "LsMoveCF(p3, p5, 360, \"RotAxis\", NULL, z10, gun, wobj0);"},
    };
    for (const auto& row : rows) {
        for (const char role : {'I', 'P'}) {
            Cell cell(row.points);
            // Each point reads the controller's once to find a free name, and once to list them.
            int reads = 0;
            cell.onCall = [&](const QString& call) { reads += call == "points" ? 1 : 0; };
            const Editor editor(create(row.kind + QString(role)));
            cell.onCall = nullptr;
            QCOMPARE(reads, 2 * editor->findChildren<SetUpPointWidget*>().size());
            QCOMPARE(editor->ToString(), QString(row.line));
            QCOMPARE(editor->findChild<QComboBox*>("cbxSpeed")->count(), 3);
        }
    }
    // What the controller uses counts only when its list has exactly that name.
    Cell cell;
    cell.nodes["tool"] = "GUN";
    cell.nodes["wobj"] = "none";
    QVERIFY(Editor(create("LP"))->ToString().endsWith(", NULL, z10, tool0, table);"));
}

void TestMotionEditors::fill_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("written"); // empty: the line itself
    QTest::addColumn<QString>("warning");
    const auto row = [](const QByteArray& line, const char* written = "", const QByteArray& warning = "") {
        QTest::newRow(line) << QString(line) << QString(written) << QString(warning);
    };
    const QByteArray missing = " Missing required parameters! params:|";
    row("LsMoveL(p1, v5, fine, tool0);", "LsMoveL(p1, v5, fine, tool0, wobj0);");
    row("LsMoveL(p1,V5,none,TOOL0,table,more)", "LsMoveL(p1, v100, z10, gun, table);");
    row("LsMoveL(Offs(p1,10,0,0), NULL, z10, gun, wobj0);");
    row("LsMoveL(Offs(p1,10), v5, fine, tool0)", "LsMoveL(p3, v5, fine, tool0, wobj0);",
        "):Offs paramter number invalid");
    row("LsMoveL(p1, v5, fine);", "LsMoveL(p3, v100, z10, gun, table);", missing + "(p1, v5, fine)");
    row("LsMoveL(p1, v5, fine, tool0); // text", "LsMoveL(p3, v100, z10, gun, table);");
    row("LsMoveC(RelTool(p1,0,0,1,0,90,0), p2, v5, fine, tool0, wobj0);");
    row("LsMoveC(p1, v5, fine, tool0);", "LsMoveC(p3, p4, v100, z10, gun, table);", missing + "(p1, v5, fine, tool0)");
    for (const QByteArray degrees : {"0.0625", "-12.3456", "359.123", "3599.99"}) {
        row("LsMoveCF(p1, p2, " + degrees + ", \"FixedAxis\", v5, fine, tool0, table);");
    }
    row("LsMoveCF(p1, p2, 7200, ConstPose, v5, fine, tool0);",
        "LsMoveCF(p1, p2, 3600, \"ConstPose\", v5, fine, tool0, wobj0);");
    row("LsMoveCF(p1, p2, -400, \"Other\", v5, fine, tool0);",
        "LsMoveCF(p1, p2, -359, \"RotAxis\", v5, fine, tool0, wobj0);");
    row("LsMoveCF(p1, p2, x, \"constpose\", v5, fine, tool0);",
        "LsMoveCF(p1, p2, 0, \"RotAxis\", v5, fine, tool0, wobj0);");
    row("LsMoveCF(p1, p2, 90, v5, fine, tool0);", "LsMoveCF(p3, p4, 360, \"RotAxis\", v100, z10, gun, table);",
        missing + "(p1, p2, 90, v5, fine, tool0)");
}

void TestMotionEditors::fill()
{
    QFETCH(QString, line);
    QFETCH(QString, written);
    Cell cell;
    const Editor editor(create(line.section('(', 0, 0).mid(QString("LsMove").size()) + 'P'));
    editor->findChild<QComboBox*>("cbxSpeed")->setCurrentText("v100");
    editor->findChild<QComboBox*>("cbxWobj")->setCurrentText("table");
    cell.forget();
    editor->FillWith(line);
    QCOMPARE(editor->ToString(), written.isEmpty() ? line : written);
    checkWarning(cell);
}

void TestMotionEditors::storing()
{
    for (const QString kind : {"LI", "CI", "CFI"}) {
        Cell cell;
        const Editor editor(create(kind));
        // The lists may show another tool: points are stored in the active one.
        editor->findChild<QComboBox*>("cbxTool")->setCurrentText("tool0");
        const auto lists = editor->findChildren<QComboBox*>("cbxPoint");
        QStringList names;
        QStringList expected;
        for (QComboBox* list : lists) {
            names.append("Weld" + QString::number(names.size()));
            expected.append("addCurrentPoint " + names.last() + " false gun wobj0");
            list->setEditText(names.last());
        }
        QCOMPARE(lists.size(), kind == "LI" ? 1 : 2);
        const QString line = editor->ToString();
        QVERIFY(line.contains('(' + names.join(", ") + ", ") && line.endsWith(", NULL, z10, tool0, wobj0);"));
        QCOMPARE(cell.calls, expected);
        // The lists have all of them, and propose the next.
        for (const QComboBox* list : lists) {
            QVERIFY(list->findText(names.last()) >= 0);
            QCOMPARE(list->currentText(), QString(list == lists.first() ? "p3" : "p4"));
        }
    }
    // The same new name twice is stored once.
    Cell cell;
    const Editor editor(create("CI"));
    editor->findChild<SetUpPointWidget*>("wgtAuxPoint")->setPointText("same");
    editor->findChild<SetUpPointWidget*>("wgtTargetPoint")->setPointText("Offs(same,0,0,5)");
    QVERIFY(editor->ToString().startsWith("LsMoveC(same, Offs(same,0,0,5), "));
    QCOMPARE(cell.calls, QStringList{"addCurrentPoint same false gun wobj0"});
}

void TestMotionEditors::checks()
{
    for (const QString kind : {"LI", "LP", "CI", "CP", "CFI", "CFP"}) {
        Cell cell;
        const Editor editor(create(kind));
        const bool isInsert = kind.endsWith('I');
        for (const int level : {2, 3}) {
            cell.level = level;
            QCOMPARE(editor->CheckInsert(), isInsert && level > 2);
            QCOMPARE(editor->CheckReplace(), !isInsert && level > 2);
            QVERIFY(editor->ToString().contains("(p3, "));
            QCOMPARE(cell.calls.isEmpty(), !isInsert || level <= 2);
        }
        // A point that would make another line of it, also inside an expression.
        auto* point = editor->findChildren<SetUpPointWidget*>().last();
        auto* list = point->findChild<QComboBox*>("cbxPoint");
        const auto agrees = [&](const char* typed) {
            list->setEditText(typed);
            return editor->CheckInsert() || editor->CheckReplace();
        };
        QVERIFY(!agrees("p1); LaserOn(\"LsData1\"") && agrees("Offs(p1,0,0,5)"));
        point->findChild<QPushButton*>("btnOffs")->click();
        QVERIFY(!agrees("a,b") && agrees("Offs(p1,0,0,5)"));
        QVERIFY(cell.messages.isEmpty());
        // An insert editor reads nothing. Below level 3 two of its texts can be compared.
        cell.level = 2;
        const QString before = editor->ToString();
        editor->FillWith("f(a, b, 90, \"FixedAxis\", v5, fine, tool0, table);");
        QCOMPARE(editor->ToString() == before, isInsert);
    }
}

/// While the host works on one call it may answer others, and let the operator go on.
void TestMotionEditors::meanwhile()
{
    const QString line = "LsMoveC(p3, p4, NULL, z10, gun, wobj0);";
    const QStringList both{"addCurrentPoint p3 false gun wobj0", "addCurrentPoint p4 false gun wobj0"};
    Cell cell;
    Editor editor;
    const auto stores = [&](const std::function<void(const QString&)>& onCall) {
        cell.onCall = nullptr;
        cell.level = 3;
        cell.io["point"] = QStringList{"p1", "p2"};
        editor.reset(create("CI"));
        cell.forget();
        cell.onCall = onCall;
        const QString written = editor->ToString();
        cell.onCall = nullptr;
        return written == line ? cell.calls : QStringList{"not the line: " + written};
    };
    // What the line says is stored, whatever is typed by then; and once.
    const auto type = [&](const char* text) { editor->findChild<QComboBox*>("cbxPoint")->setEditText(text); };
    QCOMPARE(stores([&](const QString& call) { call == "level" ? type("other") : void(); }), both);
    QString second;
    QCOMPARE(stores([&](const QString& call) { second = call == "names" ? editor->ToString() : second; }), both);
    QCOMPARE(second, line);
    // The level that counts is the last one.
    for (const QString lost : {"names", "points", "store"}) {
        const QStringList stored = stores([&](const QString& call) { cell.level = call == lost ? 2 : cell.level; });
        QCOMPARE(stored, both.mid(0, lost == "store" ? 1 : 0));
    }
    // A check judges the text that the line will have.
    editor.reset(create("LP"));
    cell.level = 3;
    cell.onCall = [&](const QString&) { type("a;"); };
    QVERIFY(!editor->CheckReplace());
}

/// Whichever host call takes an editor or its point away: the host is left alone, and nothing gone is touched.
void TestMotionEditors::takenAway()
{
    using pendix::RLContentBase;
    Cell cell;
    const auto make = [&] {
        cell.io["point"] = QStringList{"p1", "p2"};
        return create("CI");
    };
    const auto write = [](RLContentBase* editor) {
        QCOMPARE(editor->ToString(), QString("LsMoveC(p3, p4, NULL, z10, gun, wobj0);"));
    };
    QCOMPARE(takeAwayInEveryCall<RLContentBase>(cell, make, write), 13);
    QVector<bool> agreed; // with the editor gone, and with it still there
    const auto check = [&](RLContentBase* editor) { agreed.append(editor->CheckInsert()); };
    QCOMPARE(takeAwayInEveryCall<RLContentBase>(cell, make, check), 1);
    QCOMPARE(agreed, QVector<bool>({false, true}));
    using Widget = SetUpPointWidget;
    QCOMPARE(takeAwayInEveryCall<Widget>(
                 cell, [] { return new Widget; }, [](Widget* point) { point->init(2); }),
             2);
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
