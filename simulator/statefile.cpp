#include "simulator/statefile.h"

#include "simulator/jsoncheck.h"
#include "simulator/nodeschema.h"
#include "simulator/pointschema.h"
#include "simulator/wholefile.h"

#include <QFileInfo>
#include <QJsonDocument>

namespace sim
{

namespace
{
constexpr char kNodes[] = "nodes";
constexpr char kPoints[] = "points";
} // namespace

std::optional<State> loadState(const QString& path, FileFault* fault)
{
    // A link that leads nowhere is no file either: the first save creates its target.
    if (!QFileInfo::exists(path)) {
        return State();
    }
    const std::optional<JsonFile> file = JsonFile::read(path, fault);
    if (!file) {
        return std::nullopt;
    }
    const QString nodes = QLatin1String(kNodes);
    const QString points = QLatin1String(kPoints);
    const JsonPath top;
    JsonCheck check;
    check.members(file->root(), top, {nodes}, {points});
    State state;
    state.nodes = checkNodes(check, file->root().value(nodes), top / nodes);
    if (file->root().contains(points)) {
        state.points = readPoints(check, file->root().value(points), top / points);
    }
    if (check.fault()) {
        *fault = file->faultAt(check.fault()->path, check.fault()->text);
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
