#include "simulator/programtour.h"

#include "simulator/program/programeditor.h"
#include "simulator/userinput.h"

#include "pendixhost/host.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableView>
#include <QTreeWidget>

#include <algorithm>

namespace sim
{

namespace
{

constexpr int kOperator = 2;
constexpr int kEngineer = 5;
const QString kInsertBelow = QStringLiteral("insertBelow");
const QString kReplace = QStringLiteral("replaceLine");

QString lineAt(const Tour& tour, int row)
{
    return tour.window()->programEditor()->program()->line(row);
}

QStringList pointNames(const Tour& tour)
{
    QStringList names;
    for (const RobotPoint& point : tour.controller()->points()) {
        names.append(point.name);
    }
    return names;
}

/// The only way a person has to get at an instruction: the tree.
void pick(Tour& tour, const char* instruction)
{
    auto* tree = qobject_cast<QTreeWidget*>(tour.window()->findShown(QStringLiteral("instructionTree")));
    const QList<QTreeWidgetItem*> found =
        tree != nullptr ? tree->findItems(QLatin1String(instruction), Qt::MatchExactly | Qt::MatchRecursive)
                        : QList<QTreeWidgetItem*>();
    tour.expect(found.size() == 1, Tour::tr("%1 should be listed once").arg(QLatin1String(instruction)));
    if (found.size() == 1) {
        tree->scrollToItem(found.first());
        const QString obstacle = userinput::click(tree->viewport(), tree->visualItemRect(found.first()).center());
        tour.expect(obstacle.isEmpty(), obstacle);
        userinput::settle(0);
    }
}

/// A list in an editor; with several of that name, the one in the named part of the editor.
QComboBox* list(Tour& tour, const char* name, const char* part = nullptr)
{
    QWidget* root = part != nullptr ? tour.window()->findShown(QLatin1String(part)) : nullptr;
    QWidget* found = root != nullptr ? root->findChild<QComboBox*>(QLatin1String(name))
                                     : tour.window()->findShown(QLatin1String(name));
    auto* box = qobject_cast<QComboBox*>(found);
    tour.expect(box != nullptr, Tour::tr("there should be a list %1").arg(QLatin1String(name)));
    return box;
}

/// Walks through a list with the keyboard until it shows the text.
void choose(Tour& tour, const char* name, const QString& text)
{
    QComboBox* box = list(tour, name);
    if (box == nullptr) {
        return;
    }
    box->setFocus(Qt::MouseFocusReason);
    userinput::key(box, Qt::Key_Home);
    for (int left = box->count(); left > 0 && box->currentText() != text; --left) {
        userinput::key(box, Qt::Key_Down);
    }
    tour.expect(box->currentText() == text, Tour::tr("%1 should offer %2").arg(QLatin1String(name), text));
}

void typePoint(Tour& tour, const char* part, const QString& name)
{
    if (const QComboBox* box = list(tour, "cbxPoint", part)) {
        const QString obstacle = userinput::type(box->lineEdit(), name);
        tour.expect(obstacle.isEmpty(), obstacle);
    }
}

void expectLine(Tour& tour, int row, const QString& line)
{
    tour.expect(lineAt(tour, row) == line,
                Tour::tr("line %1 should be  %2  it is  %3").arg(QString::number(row + 1), line, lineAt(tour, row)));
}

void expectLines(Tour& tour, int count)
{
    const int lines = tour.window()->programEditor()->program()->rowCount();
    tour.expect(lines == count,
                Tour::tr("there should be %1 lines, there are %2").arg(QString::number(count), QString::number(lines)));
}

/// Inserts what the editor shows below the selected line; the result is line row, counted from 0.
void insertAs(Tour& tour, int row, const QString& line)
{
    tour.click(kInsertBelow);
    expectLines(tour, row + 1);
    expectLine(tour, row, line);
}

/// The controller holds a point of that name at the robot's position.
void expectPointHere(Tour& tour, const QString& name)
{
    const auto& points = tour.controller()->points();
    const Pose here = tour.controller()->position();
    tour.expect(std::any_of(points.cbegin(), points.cend(),
                            [&](const RobotPoint& point) { return point.name == name && point.pose == here; }),
                Tour::tr("the controller should have %1 at the robot's position").arg(name));
}

void opensProgram(Tour& tour)
{
    tour.click(tour.window()->findChild<QPushButton*>(QStringLiteral("showProgram")));
    // Where the points that the editors store are to be seen.
    tour.openTab("inspector", PendantWindow::tr("Points"));
    const auto* tree = qobject_cast<QTreeWidget*>(tour.window()->findShown(QStringLiteral("instructionTree")));
    const QTreeWidgetItem* group = tree != nullptr ? tree->topLevelItem(0) : nullptr;
    const int known = pendix::RlRegistry::instance().instructions().size();
    tour.expect(group != nullptr && group->text(0) == QLatin1String("Laser Weld Ins") && group->childCount() == known,
                Tour::tr("all instructions should be in the group \"Laser Weld Ins\""));
    tour.expectCommands({});
}

void approaches(Tour& tour)
{
    tour.controller()->setPosition({820, -120, 415, 180, 0, 90});
    pick(tour, "LsMoveL");
    choose(tour, "cbxSpeed", QStringLiteral("v200"));
    choose(tour, "cbxZone", QStringLiteral("z10"));
    insertAs(tour, 0, QStringLiteral("LsMoveL(p1, v200, z10, weld_head, table_left);"));
    expectPointHere(tour, QStringLiteral("p1"));
    tour.expect(list(tour, "cbxPoint")->currentText() == QLatin1String("p2"),
                Tour::tr("the editor should propose p2 next"));
}

void switchesLaserOn(Tour& tour)
{
    pick(tour, "LaserOn");
    choose(tour, "cbxLaserDataID", QStringLiteral("LsData2"));
    insertAs(tour, 1, QStringLiteral("LaserOn(\"LsData2\");"));
}

void weldsWithOffset(Tour& tour)
{
    tour.controller()->setPosition({820, 80, 400, 180, 0, 90});
    pick(tour, "LsMoveL");
    tour.click(QStringLiteral("btnOffs"));
    tour.type(QStringLiteral("sbxX"), QStringLiteral("12.5"));
    tour.type(QStringLiteral("sbxZ"), QStringLiteral("-2"));
    choose(tour, "cbxSpeed", QStringLiteral("v20"));
    choose(tour, "cbxZone", QStringLiteral("fine"));
    insertAs(tour, 2, QStringLiteral("LsMoveL(Offs(p2,12.5,0,-2), v20, fine, weld_head, table_left);"));
    expectPointHere(tour, QStringLiteral("p2"));
}

void rampsParameters(Tour& tour)
{
    pick(tour, "LsParaSet");
    choose(tour, "cbxLaserDataID", QStringLiteral("LsData3"));
    choose(tour, "cbxRampType", QStringLiteral("Time"));
    tour.type(QStringLiteral("spinBox_ramp_time"), QStringLiteral("350"));
    insertAs(tour, 3, QStringLiteral("LsParaSet(\"LsData3\",\"Time\",350);"));
}

void weldsArc(Tour& tour)
{
    tour.controller()->setPosition({860, 130, 400, 180, 0, 45});
    pick(tour, "LsMoveC");
    // A point that is there already, and the one that the editor proposes.
    typePoint(tour, "wgtAuxPoint", QStringLiteral("SeamEnd"));
    typePoint(tour, "wgtTargetPoint", QStringLiteral("p3"));
    choose(tour, "cbxSpeed", QStringLiteral("v20"));
    choose(tour, "cbxZone", QStringLiteral("fine"));
    insertAs(tour, 4, QStringLiteral("LsMoveC(SeamEnd, p3, v20, fine, weld_head, table_left);"));
    expectPointHere(tour, QStringLiteral("p3"));
}

void switchesLaserOff(Tour& tour)
{
    pick(tour, "LaserOff");
    insertAs(tour, 5, QStringLiteral("LaserOff();"));
    tour.say(tour.window()->programEditor()->program()->lines());
}

/// For its picture: an editor as it opens.
template <int Index>
void showsEditor(Tour& tour)
{
    constexpr const char* kOthers[] = {"LsMoveCF", "LsWireFwd", "LsWireBwd", "LsParaMatch", "LsParaMatchOff"};
    pick(tour, kOthers[Index]);
    expectLines(tour, 6);
}

void changesLine(Tour& tour)
{
    if (const auto* table = qobject_cast<QTableView*>(tour.window()->findShown(QStringLiteral("programLines")))) {
        const QRect cell = table->visualRect(table->model()->index(1, Program::Text));
        const QString obstacle = userinput::click(table->viewport(), cell.center());
        tour.expect(obstacle.isEmpty(), obstacle);
    }
    tour.openTab("programPanes", ProgramEditor::tr("Change"));
    choose(tour, "cbxStartMode", QStringLiteral("Spot weld"));
    tour.type(QStringLiteral("spinInPlaceWait"), QStringLiteral("250"));
    tour.click(kReplace);
    expectLine(tour, 1, QStringLiteral("LaserOn(\"LsData2\", 250);"));
    const auto* trip = qobject_cast<QPlainTextEdit*>(tour.window()->findShown(QStringLiteral("roundTrip")));
    tour.expect(trip != nullptr && trip->toPlainText().contains(QLatin1String("expresses the whole line")),
                Tour::tr("the editor should express the whole line"));
}

void undoesChange(Tour& tour)
{
    tour.click(QStringLiteral("programUndo"));
    expectLine(tour, 1, QStringLiteral("LaserOn(\"LsData2\");"));
}

void levelRefusesMotion(Tour& tour)
{
    const QStringList before = pointNames(tour);
    tour.openTab("programPanes", ProgramEditor::tr("Insert"));
    tour.controller()->setOperatorLevel(kOperator);
    pick(tour, "LsMoveL");
    tour.click(kInsertBelow);
    expectLines(tour, 6);
    tour.expect(pointNames(tour) == before, Tour::tr("no point should have been stored"));
    const auto* word = qobject_cast<QLabel*>(tour.window()->findShown(QStringLiteral("editorWord")));
    tour.expect(word != nullptr && word->text().contains(QLatin1String("Refused: at operator level 2")),
                Tour::tr("the refusal should be shown with the operator level"));
}

void savesAndOpens(Tour& tour)
{
    tour.controller()->setOperatorLevel(kEngineer);
    ProgramEditor* editor = tour.window()->programEditor();
    const QStringList written = editor->program()->lines();
    editor->setFileChooser([&tour](FileUse, const QString&) { return tour.file(QStringLiteral("weld-seam.rl")); });
    tour.click(QStringLiteral("programSave"));
    tour.click(QStringLiteral("programNew"));
    expectLines(tour, 0);
    tour.click(QStringLiteral("programOpen"));
    tour.expect(editor->program()->lines() == written, Tour::tr("the opened program should be the saved one"));
}

} // namespace

QVector<Tour::Step> programSteps()
{
    return {
        {QT_TRANSLATE_NOOP("sim::Tour", "the program editor opens with the plug-in's instructions"), "program",
         opensProgram},
        {QT_TRANSLATE_NOOP("sim::Tour", "LsMoveL: the approach, at a new point"), "lsmovel", approaches},
        {QT_TRANSLATE_NOOP("sim::Tour", "LaserOn: the weld starts"), "laseron", switchesLaserOn},
        {QT_TRANSLATE_NOOP("sim::Tour", "LsMoveL with an offset point"), "lsmovel-offset", weldsWithOffset},
        {QT_TRANSLATE_NOOP("sim::Tour", "LsParaSet with a time ramp"), "lsparaset", rampsParameters},
        {QT_TRANSLATE_NOOP("sim::Tour", "LsMoveC: an arc through a point that is there, to a new one"), "lsmovec",
         weldsArc},
        {QT_TRANSLATE_NOOP("sim::Tour", "LaserOff: the weld ends, and the program is complete"), "laseroff",
         switchesLaserOff},
        {QT_TRANSLATE_NOOP("sim::Tour", "the editor of LsMoveCF"), "lsmovecf", showsEditor<0>},
        {QT_TRANSLATE_NOOP("sim::Tour", "the editor of LsWireFwd"), "lswirefwd", showsEditor<1>},
        {QT_TRANSLATE_NOOP("sim::Tour", "the editor of LsWireBwd"), "lswirebwd", showsEditor<2>},
        {QT_TRANSLATE_NOOP("sim::Tour", "the editor of LsParaMatch"), "lsparamatch", showsEditor<3>},
        {QT_TRANSLATE_NOOP("sim::Tour", "the editor of LsParaMatchOff"), "lsparamatchoff", showsEditor<4>},
        {QT_TRANSLATE_NOOP("sim::Tour", "a line is changed to a spot weld"), "line-changed", changesLine},
        {QT_TRANSLATE_NOOP("sim::Tour", "the change is undone"), "change-undone", undoesChange},
        {QT_TRANSLATE_NOOP("sim::Tour", "operator level 2 can't insert a motion"), "motion-refused",
         levelRefusesMotion},
        {QT_TRANSLATE_NOOP("sim::Tour", "the program is saved and opened again"), "program-opened", savesAndOpens},
    };
}

} // namespace sim
