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
constexpr char kWithdrawn[] = "withdrawn";
constexpr char kAccess[] = "access";

/// The schema of the cell has that of a state among its definitions, with which it shares nodes and points.
const SchemaValidator& schema()
{
    static const SchemaValidator validator([] {
        QJsonObject schema = SchemaValidator::of(QStringLiteral("cell")).schema();
        schema.insert(QStringLiteral("$ref"), QStringLiteral("#/definitions/state"));
        return schema;
    }());
    return validator;
}

RegisterChanges readChanges(NameCheck& check, const QJsonValue& value, const JsonPath& path)
{
    const QString withdrawn = QLatin1String(kWithdrawn);
    const QString access = QLatin1String(kAccess);
    RegisterChanges changes;
    const QJsonArray names = value[withdrawn].toArray();
    for (int i = 0; !check.fault() && i < names.size(); ++i) {
        const JsonPath place = path / withdrawn / i;
        check.another(check.name(names.at(i), place), place, &changes.withdrawn);
    }
    for (const QJsonValue entry : readRegisters(check, value[access], path / access)) {
        changes.access.insert(nameOfRegister(entry), accessOf(entry));
    }
    return changes;
}

QJsonObject changesToJson(const RegisterChanges& changes)
{
    QStringList withdrawn = changes.withdrawn.values();
    withdrawn.sort();
    QJsonArray access;
    for (auto change = changes.access.constBegin(); change != changes.access.constEnd(); ++change) {
        access.append(QJsonObject{{QLatin1String(registermember::kName), change.key()},
                                  {QLatin1String(registermember::kAccess), change.value()}});
    }
    return {{QLatin1String(kWithdrawn), QJsonArray::fromStringList(withdrawn)}, {QLatin1String(kAccess), access}};
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
            state.registers = readChanges(check, root->value(registers), JsonPath() / registers);
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
    cell->changes = {};
    for (const QJsonValue entry : qAsConst(cell->registers)) {
        const QString name = nameOfRegister(entry);
        const QString access = state.registers.access.value(name, accessOf(entry));
        if (state.registers.withdrawn.contains(name)) {
            cell->changes.withdrawn.insert(name);
        }
        if (access != accessOf(entry)) {
            cell->changes.access.insert(name, access);
        }
    }
}

QString saveState(const QString& path, const QJsonObject& nodes, const QVector<RobotPoint>& points,
                  const RegisterChanges& registers)
{
    const QJsonObject root = {{QLatin1String(kNodes), nodes},
                              {QLatin1String(kPoints), pointsToJson(points)},
                              {QLatin1String(kRegisters), changesToJson(registers)}};
    return writeWholeFile(path, QJsonDocument(root).toJson());
}

} // namespace sim
