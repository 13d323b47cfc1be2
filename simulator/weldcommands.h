#ifndef SIMULATOR_WELDCOMMANDS_H
#define SIMULATOR_WELDCOMMANDS_H

#include "simulator/consumables.h"

#include <QJsonObject>
#include <QJsonValue>
#include <QStringList>

namespace sim
{

/// What the simulated controller's welding service holds and its commands change.
struct WeldData {
    QJsonObject nodes;        ///< configuration nodes by name; null: there is none of that name
    QJsonObject values;       ///< single values by dotted path
    bool weldEnabled = false; ///< whether laser welding is switched on
    bool monitoring = false;  ///< whether the monitor stream is on
    Consumables consumables;
};

/// Result of a command.
struct CommandOutcome {
    QJsonValue code;     ///< the "return" value of the answer
    bool done = false;   ///< false: refused, nothing was set going
    QString reason;      ///< why it was refused, for the journal
    QJsonObject details; ///< what the answer holds beside its code
};

/// One command that the welding service knows.
struct CommandRow {
    const char* name;
    /// Gets an argument that follows the command's schema.
    CommandOutcome (*work)(const CommandRow& row, WeldData& data, const QJsonValue& argument);
    const char* node = nullptr; ///< the configuration node that it changes; null for none

    /// Carries a command out, or refuses an argument that does not follow its schema and says which member.
    CommandOutcome execute(WeldData& data, const QJsonValue& argument) const;
};

QStringList commandNames();

/// The row of a command; null for a command that the service does not know.
const CommandRow* findCommand(const QString& name);

} // namespace sim

#endif
