#ifndef PAGE_IO_PORTRULES_H
#define PAGE_IO_PORTRULES_H

#include "page/io/assignment.h"

#include <vector>

/// The rules that an I/O mapping must keep before it is saved. They judge values and tell what is wrong, never how to
/// say it.

/// A row of a table as it was at one moment.
struct AssignedSignal {
    const IoRowTemplate* signal;
    QString label; ///< its name as shown
    Assignment assignment;
};

using AssignedSignals = std::vector<AssignedSignal>;

/// A port that a signal in use occupies.
struct PortConfig {
    const IoRowTemplate* signal;
    QString port;
    int type; ///< server type
    int bias; ///< element of a register, from 0; 0 for anything else
};

/// The register that a signal names, without surrounding blanks, whether the signal is switched on or not; empty when
/// it is assigned to something else, or to nothing.
QString registerOf(const AssignedSignal& row);

/// Whether the signal takes part in the rules of used ports: always, or while its switch is on.
bool isActive(const AssignedSignal& row);

/// The ports that active signals occupy, in table order. Empty ones occupy nothing.
std::vector<PortConfig> occupiedPorts(const AssignedSignals& rows);

/// The first port that repeats an earlier one, with the signal that does; null if none does. A port is told from others
/// by its text and server type, a register by its element as well: the same text under two I/O types counts as the same
/// port when these have one server type.
const PortConfig* duplicatePort(const std::vector<PortConfig>& ports);

/// The first active signal without a port; null if all have one.
const IoRowTemplate* signalWithoutPort(const AssignedSignals& rows);

#endif
