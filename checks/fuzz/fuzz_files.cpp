// Files that the simulator reads, as a cell and as kept state. An input is a file's bytes, or decisions that damage
// genuine content in a few places.
#include "checks/fuzz/damage.h"
#include "checks/fuzz/filecheck.h"
#include "checks/fuzz/input.h"
#include "checks/fuzz/leaks.h"
#include "checks/fuzz/require.h"
#include "checks/support/scramble.h"
#include "simulator/cellfile.h"
#include "simulator/confignodes.h"
#include "simulator/simulatedcontroller.h"
#include "simulator/statefile.h"

#include <QJsonDocument>
#include <QSet>

#include <algorithm>
#include <cmath>

using namespace fuzz;
using namespace sim;

namespace
{

constexpr int kMostDamages = 3;

bool areSound(const QJsonObject& nodes)
{
    return !nodesFault(QJsonObject{{QStringLiteral("nodes"), nodes}});
}

/// What is read from a list of names can be told apart and chosen.
void checkNames(const QStringList& names)
{
    require(QSet<QString>(names.begin(), names.end()).size() == names.size(), "an accepted list has a name twice");
    require(std::all_of(names.begin(), names.end(), [](const QString& n) { return !n.trimmed().isEmpty(); }),
            "an accepted list has an empty name");
}

void checkPose(const Pose& pose)
{
    for (const Coordinate& coordinate : kCoordinates) {
        require(std::abs(pose.*coordinate.value) <= coordinate.limit, "an accepted position is out of reach");
    }
}

void checkPoints(const QVector<RobotPoint>& points)
{
    QStringList names;
    for (const RobotPoint& point : points) {
        names.append(point.name);
        checkPose(point.pose);
        checkNames({point.tool});
        checkNames({point.wobj});
    }
    checkNames(names);
}

void checkCell(const Cell& cell)
{
    require(areSound(cell.nodes), "a cell with unsound nodes is accepted");
    for (const QStringList& names : {cell.tools, cell.wobjs, cell.speeds, cell.zones}) {
        checkNames(names);
    }
    for (const QStringList& names : cell.io) {
        checkNames(names);
    }
    QStringList registers;
    for (const QJsonValue entry : cell.registers) {
        registers.append(entry[QLatin1String("name")].toString());
        require(entry[QLatin1String("len")].toInt(0) >= 1, "an accepted register has no length");
    }
    checkNames(registers);
    require(cell.tools.contains(cell.currentTool) && cell.wobjs.contains(cell.currentWobj),
            "the current tool or work object of an accepted cell is none of its own");
    checkPose(cell.position);
    checkPoints(cell.points);
    for (const RobotPoint& point : cell.points) {
        require(cell.tools.contains(point.tool) && cell.wobjs.contains(point.wobj),
                "the tool or work object of an accepted cell's point is none of its own");
    }
}

void checkKept(const QJsonObject& nodes, const QVector<RobotPoint>& points, const RegisterChanges& registers)
{
    const QString path = pathOf("kept.json");
    FileFault fault;
    require(saveState(path, nodes, points, registers).isEmpty(), "an accepted state can't be saved");
    const auto again = loadState(path, &fault);
    require(again && again->nodes == nodes && again->points == points &&
                again->registers.withdrawn == registers.withdrawn && again->registers.access == registers.access,
            "a state changes when it is saved and loaded again");
}

/// What the nodes have of a command's members: all of them, or as many as it may bring at once.
QJsonObject membersFor(const QString& command, const QJsonObject& nodes, Dice& dice)
{
    const QJsonObject schema = SchemaValidator::of(command).schema();
    const QJsonObject properties = schema.value(QLatin1String("properties")).toObject();
    QJsonObject members;
    for (const QJsonValue node : nodes) {
        for (const QString& key : node.toObject().keys()) {
            if (properties.contains(key)) {
                members.insert(key, node[key]);
            }
        }
    }
    const int most = schema.value(QLatin1String("maxProperties")).toInt(members.size());
    if (members.size() <= most) {
        return members;
    }
    const QString key = dice.oneOf(members.keys());
    QJsonObject one = {{key, members.value(key)}};
    for (const QJsonValue other : schema.value(QLatin1String("dependencies"))[key].toArray()) {
        one.insert(other.toString(), members.value(other.toString()));
    }
    return one;
}

QJsonValue argumentFor(const QString& command, const QJsonObject& nodes, Dice& dice)
{
    static const QStringList texts = {QStringLiteral("TRUE"), QStringLiteral("FALSE")};
    const QJsonObject members = membersFor(command, nodes, dice);
    const QJsonValue genuine = members.isEmpty() ? QJsonValue(dice.oneOf(texts)) : QJsonValue(members);
    return dice.oneIn(2) ? genuine : scrambled(genuine, dice);
}

/// Whatever a command brings and however it is answered, the controller's data stays sound, and what it refuses or
/// does not act on changes nothing.
void checkCommand(SimulatedController& controller, const QString& command, const QJsonValue& argument, AnswerKind kind)
{
    const QJsonObject nodes = controller.nodes();
    const bool enabled = controller.weldEnabled();
    controller.setPlan(command, {kind, 0});
    const auto execution = controller.execute(QStringLiteral("Corvane"), {{command, argument}});
    require(execution.answer.isEmpty() == (kind == AnswerKind::Empty),
            "a command is answered, or not, against the plan");
    // Looked at only when there is something new: this takes longer than all the rest.
    require(controller.nodes() == nodes || areSound(controller.nodes()),
            "a command makes the controller keep an unsound node");
    const bool refused = kind == AnswerKind::Proper && !execution.remarks.isEmpty();
    require(!(refused || !controllerActs(kind)) || (controller.nodes() == nodes && controller.weldEnabled() == enabled),
            "a refused command changes the controller's data");
}

/// A point is stored as a whole or not at all, and what is stored can be kept.
void checkStoring(SimulatedController& controller, Dice& dice)
{
    Pose pose;
    for (const Coordinate& coordinate : kCoordinates) {
        pose.*coordinate.value = anyValue(dice).toDouble();
    }
    controller.setPosition(pose);
    const QVector<RobotPoint> before = controller.points();
    const QString name = before.isEmpty() || dice.oneIn(2) ? anyText(dice) : dice.oneOf(before).name;
    const Cell& cell = controller.cell();
    const QString tool = dice.oneIn(8) ? anyText(dice) : cell.currentTool;
    const QString obstacle = controller.addPoint(name, dice.oneIn(2), tool, cell.currentWobj);
    const RobotPoint stored = {name, controller.position(), tool, cell.currentWobj};
    require(obstacle.isEmpty() ? controller.points().contains(stored) : controller.points() == before,
            "a point is not stored as it is said to be");
    checkKept(controller.nodes(), controller.points(), controller.cell().changes);
}

/// The pendant buttons' commands, with what they really bring, also when there are no settings to go by.
void pressButtons(SimulatedController& controller)
{
    for (const QJsonObject& nodes : {controller.nodes(), QJsonObject()}) {
        controller.setNodes(nodes);
        for (const QString& command : commandNames()) {
            for (const bool pressed : {true, false}) {
                checkCommand(controller, command, pressed, AnswerKind::Proper);
            }
        }
    }
}

void drive(SimulatedController& controller, Dice& dice)
{
    for (const QString& name : nodeNames() + valueNames()) {
        require(!controller.published(name).isUndefined(), "a node or value of an accepted cell is not published");
        controller.published(name + QLatin1Char('.') + anyText(dice));
    }
    for (const QString& command : commandNames()) {
        const QJsonValue argument = argumentFor(command, controller.nodes(), dice);
        for (const AnswerKind kind : answerKinds()) {
            require(!answerLabel(kind).isEmpty(), "a kind of answer has no label");
            checkCommand(controller, command, argument, kind);
        }
    }
    controller.execute(QStringLiteral("Corvane"), {{anyText(dice), anyValue(dice)}});
    checkStoring(controller, dice);
    pressButtons(controller);
    controller.setConnected(false);
    require(controller.published(nodeNames().first()).isUndefined(), "a value comes over a line that is down");
}

Cell asCell(const QJsonObject& content)
{
    FileFault fault;
    const QString path = pathOf("sound.json");
    write(path, QJsonDocument(content).toJson());
    std::optional<Cell> cell = loadCell(path, &fault);
    require(cell.has_value(), "the simulator refuses its own cell, as it is or shortened");
    return *cell;
}

/// The simulator's own cell with less of everything: small enough to meet a damage often, and sound.
const QJsonObject& shortCell()
{
    static const QJsonObject cell = [] {
        QJsonObject content = shortened(shippedCell()).toObject();
        asCell(content);
        return content;
    }();
    return cell;
}

void checkCellFile(const QByteArray& bytes, Dice& dice)
{
    const QString path = pathOf("cell.json");
    write(path, bytes);
    FileFault fault;
    const std::optional<Cell> cell = loadCell(path, &fault);
    require(contentOf(path) == bytes, "reading a cell file changes it");
    if (!cell) {
        checkFault(fault, path, bytes);
        return;
    }
    checkCell(*cell);
    checkKept(cell->nodes, cell->points, cell->changes);
    SimulatedController controller(*cell);
    drive(controller, dice);
}

void checkStateFile(const QByteArray& bytes, Dice& dice)
{
    const QString path = pathOf("state.json");
    write(path, bytes);
    FileFault fault;
    const std::optional<State> state = loadState(path, &fault);
    require(contentOf(path) == bytes, "reading a state file changes it");
    if (!state) {
        checkFault(fault, path, bytes);
        return;
    }
    static const Cell shipped = asCell(shippedCell());
    Cell cell = shipped;
    require(state->nodes.has_value(), "a state without nodes is accepted");
    restoreState(*state, &cell);
    checkPoints(cell.points);
    checkKept(cell.nodes, cell.points, state->registers);
    SimulatedController controller(cell);
    drive(controller, dice);
}

void checkDamagedFile(Dice& dice)
{
    const bool asState = dice.oneIn(2);
    const QJsonObject& cell = dice.oneIn(16) ? shippedCell() : shortCell();
    const QString nodes = QStringLiteral("nodes");
    const QString points = QStringLiteral("points");
    QJsonValue content = asState ? QJsonObject{{nodes, cell.value(nodes)}, {points, cell.value(points)}} : cell;
    for (int left = dice.below(kMostDamages + 1); left > 0; --left) {
        content = damaged(content, dice);
    }
    const QByteArray bytes = QJsonDocument(content.toObject()).toJson();
    if (asState) {
        checkStateFile(bytes, dice);
    } else {
        checkCellFile(bytes, dice);
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/)
{
    silenceLogs();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const Input input(data, size);
    ByteDice dice = input.dice();
    if (input.holdsDecisions()) {
        checkDamagedFile(dice);
    } else {
        // Qt's reader leaks an object or array whose member comes twice; damaged content has no such member.
        const LeaksIgnored ignored;
        checkCellFile(input.text(), dice);
        checkStateFile(input.text(), dice);
    }
    return 0;
}
