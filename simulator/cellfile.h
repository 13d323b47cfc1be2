#ifndef SIMULATOR_CELLFILE_H
#define SIMULATOR_CELLFILE_H

#include "simulator/filefault.h"
#include "simulator/registerchanges.h"
#include "simulator/robotpoint.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QMap>
#include <QStringList>
#include <QVector>

#include <optional>

namespace sim
{

/// The pendant's setting of the font zoom, and the range that a cell may give it: more than plug-ins take.
constexpr char kFontZoom[] = "brisel.fontzoom";
constexpr double kLowestFontZoom = 0.1;
constexpr double kHighestFontZoom = 10.0;

/// The welding cell behind the simulated controller as it stands when the program starts.
struct Cell {
    QJsonObject nodes;             ///< configuration nodes by name; null: the controller has none of that name
    QJsonObject values;            ///< single values by dotted path
    QJsonObject hostSettings;      ///< settings of the pendant itself by name
    QMap<QString, QStringList> io; ///< signal names by type: DI DO AI AO GI GO
    QJsonArray registers;          ///< one object per register: name, type, rw, len
    RegisterChanges changes;       ///< what was done to the registers since; none in a cell file
    QVector<RobotPoint> points;    ///< each with a tool and a work object of this cell
    Pose position;                 ///< the robot's
    QStringList tools;
    QStringList wobjs;
    QStringList speeds;
    QStringList zones;
    QString currentTool;
    QString currentWobj;
};

/// Reads a cell file. One that does not follow cell.schema.json and the schemas of the nodes, names something twice or
/// names a tool or work object that it does not have yields nothing and fills fault with the first thing that is wrong.
std::optional<Cell> loadCell(const QString& path, FileFault* fault);

} // namespace sim

#endif
