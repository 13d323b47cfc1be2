#ifndef SIMULATOR_REGISTERCHANGES_H
#define SIMULATOR_REGISTERCHANGES_H

#include <QMap>
#include <QSet>
#include <QString>

namespace sim
{

/// What was done to the registers of a cell at its controller, by their names.
struct RegisterChanges {
    QSet<QString> withdrawn;       ///< the controller does not publish them
    QMap<QString, QString> access; ///< another word than the cell's own
};

} // namespace sim

#endif
