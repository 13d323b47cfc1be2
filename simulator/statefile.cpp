#include "simulator/statefile.h"

#include "simulator/confignodes.h"
#include "simulator/jsonfile.h"
#include "simulator/pointlist.h"
#include "simulator/registerlist.h"
#include "simulator/wholefile.h"

#include <QFileInfo>
#include <QJsonDocument>

namespace sim
{

namespace
{
constexpr char kNodes[] = "nodes";
constexpr char kPoints[] = "points";
constexpr char kRegisters[] = "registers";

/// The schema of the cell has that of a state among its definitions, with which it shares nodes, points and
/// registers.
const SchemaValidator& schema()
{
    static const SchemaValidator validator([] {
        QJsonObject schema = SchemaValidator::of(QStringLiteral("cell")).schema();
        schema.insert(QStringLiteral("$ref"), QStringLiteral("#/definitions/state"));
        return schema;
    }());
    return validator;
}

void restoreRegisters(const QJsonArray& published, Cell* cell)
{
    QHash<QString, QJsonValue> left;
    for (const QJsonValue entry : published) {
        left.insert(nameOfRegister(entry), entry);
    }
    const int room = kMostNames - published.size();
    QJsonArray registers;
    for (const QJsonValue entry : qAsConst(cell->registers)) {
        const QString name = nameOfRegister(entry);
        if (left.contains(name)) {
            registers.append(left.take(name));
        } else if (cell->withdrawn.size() < room) {
            registers.append(entry);
            cell->withdrawn.insert(name);
        }
    }
    for (const QJsonValue entry : published) {
        if (left.contains(nameOfRegister(entry))) {
            registers.append(entry);
        }
    }
    cell->registers = registers;
}

} // namespace

std::optional<State> loadState(const QString& path, FileFault* fault)
{
    // A link that leads nowhere is no file either: the first save creates its target.
    if (!QFileInfo::exists(path)) {
        return State();
    }
    const std::optional<QJsonObject> root = readJsonFile(path, fault);
    if (!root) {
        return std::nullopt;
    }
    std::optional<SchemaFault> found = schema().fault(*root);
    if (!found) {
        found = nodesFault(*root);
    }
    State state;
    if (!found) {
        const QString points = QLatin1String(kPoints);
        NameCheck check;
        state.nodes = root->value(QLatin1String(kNodes)).toObject();
        if (root->contains(points)) {
            state.points = readPoints(check, root->value(points), JsonPath() / points);
        }
        const QString registers = QLatin1String(kRegisters);
        if (root->contains(registers)) {
            state.registers = readRegisters(check, root->value(registers), JsonPath() / registers);
        }
        found = check.fault();
    }
    if (found) {
        *fault = {path, 0, found->path.toString(), found->text};
        return std::nullopt;
    }
    return state;
}

void restoreState(const State& state, Cell* cell)
{
    cell->nodes = state.nodes.value_or(cell->nodes);
    cell->points = state.points.value_or(cell->points);
    if (state.registers) {
        restoreRegisters(*state.registers, cell);
    }
}

QString saveState(const QString& path, const QJsonObject& nodes, const QVector<RobotPoint>& points,
                  const std::optional<QJsonArray>& registers)
{
    QJsonObject root = {{QLatin1String(kNodes), nodes}, {QLatin1String(kPoints), pointsToJson(points)}};
    if (registers) {
        root.insert(QLatin1String(kRegisters), *registers);
    }
    return writeWholeFile(path, QJsonDocument(root).toJson());
}

} // namespace sim
