#include "simulator/cellfile.h"

#include "simulator/confignodes.h"
#include "simulator/jsonfile.h"
#include "simulator/pointlist.h"
#include "simulator/registerlist.h"

namespace sim
{

namespace
{

/// Appends the names of a series such as {"prefix": "DO", "first": 1, "count": 64}, or the one name.
void appendNames(NameCheck& check, const QJsonValue& entry, const JsonPath& path, QStringList* names)
{
    if (!entry.isObject()) {
        names->append(check.name(entry, path));
        return;
    }
    const QString prefix = QStringLiteral("prefix");
    const QString stem = check.name(entry[prefix], path / prefix);
    const int first = entry[QLatin1String("first")].toInt();
    const int count = entry[QLatin1String("count")].toInt();
    for (int i = 0; i < count; ++i) {
        names->append(stem + QString::number(first + i));
    }
}

/// A list of names: a series, or an array of names and series. No name may come twice.
QStringList readNames(NameCheck& check, const QJsonValue& value, const JsonPath& path)
{
    QStringList names;
    QSet<QString> known;
    const bool single = value.isObject();
    const QJsonArray entries = single ? QJsonArray{value} : value.toArray();
    for (int i = 0; !check.fault() && i < entries.size(); ++i) {
        const JsonPath entryPath = single ? path : path / i;
        const int before = names.size();
        appendNames(check, entries.at(i), entryPath, &names);
        for (int n = before; !check.fault() && n < names.size(); ++n) {
            check.another(names.at(n), entryPath, &known);
        }
    }
    return names;
}

/// The points of a cell, which are meant for its own tools and work objects.
QVector<RobotPoint> readOwnPoints(NameCheck& check, const QJsonValue& value, const JsonPath& path, const Cell& cell)
{
    QVector<RobotPoint> points = readPoints(check, value, path);
    for (int i = 0; i < points.size(); ++i) {
        check.choice(points.at(i).tool, path / i / QStringLiteral("tool"), cell.tools, "tools");
        check.choice(points.at(i).wobj, path / i / QStringLiteral("wobj"), cell.wobjs, "wobjs");
    }
    return points;
}

Cell readCell(NameCheck& check, const QJsonObject& root)
{
    const JsonPath top;
    const auto names = [&](const QString& list) { return readNames(check, root.value(list), top / list); };
    const auto current = [&](const QString& key, const QStringList& choices, const char* list) {
        return check.choice(root.value(key), top / key, choices, list);
    };
    Cell cell;
    cell.nodes = root.value(QLatin1String("nodes")).toObject();
    cell.values = root.value(QLatin1String("values")).toObject();
    cell.hostSettings = root.value(QLatin1String("host")).toObject();
    const QString io = QStringLiteral("io");
    const QJsonObject signalLists = root.value(io).toObject();
    for (auto type = signalLists.constBegin(); type != signalLists.constEnd(); ++type) {
        cell.io.insert(type.key(), readNames(check, type.value(), top / io / type.key()));
    }
    const QString registers = QStringLiteral("registers");
    cell.registers = readRegisters(check, root.value(registers), top / registers);
    cell.tools = names(QStringLiteral("tools"));
    cell.wobjs = names(QStringLiteral("wobjs"));
    cell.speeds = names(QStringLiteral("speeds"));
    cell.zones = names(QStringLiteral("zones"));
    const QString points = QStringLiteral("points");
    cell.points = readOwnPoints(check, root.value(points), top / points, cell);
    cell.position = readPose(root.value(QLatin1String("position")));
    cell.currentTool = current(QStringLiteral("current_tool"), cell.tools, "tools");
    cell.currentWobj = current(QStringLiteral("current_wobj"), cell.wobjs, "wobjs");
    return cell;
}

} // namespace

std::optional<Cell> loadCell(const QString& path, FileFault* fault)
{
    const std::optional<QJsonObject> root = readJsonFile(path, fault);
    if (!root) {
        return std::nullopt;
    }
    std::optional<SchemaFault> found = SchemaValidator::of(QStringLiteral("cell")).fault(*root);
    if (!found) {
        found = nodesFault(*root);
    }
    if (!found) {
        NameCheck check;
        Cell cell = readCell(check, *root);
        found = check.fault();
        if (!found) {
            return cell;
        }
    }
    *fault = {path, 0, found->path.toString(), found->text};
    return std::nullopt;
}

} // namespace sim
