#include "simulator/statefile.h"

#include "simulator/confignodes.h"
#include "simulator/jsonfile.h"
#include "simulator/pointlist.h"
#include "simulator/wholefile.h"

#include <QFileInfo>
#include <QJsonDocument>

namespace sim
{

namespace
{
constexpr char kNodes[] = "nodes";
constexpr char kPoints[] = "points";

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
        found = check.fault();
    }
    if (found) {
        *fault = {path, 0, found->path.toString(), found->text};
        return std::nullopt;
    }
    return state;
}

QString saveState(const QString& path, const QJsonObject& nodes, const QVector<RobotPoint>& points)
{
    const QJsonObject root = {{QLatin1String(kNodes), nodes}, {QLatin1String(kPoints), pointsToJson(points)}};
    return writeWholeFile(path, QJsonDocument(root).toJson());
}

} // namespace sim
