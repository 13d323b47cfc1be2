#ifndef PAGE_IO_ASSIGNMENT_H
#define PAGE_IO_ASSIGNMENT_H

#include "page/io/signals.h"

#include <QJsonObject>

/// The server type of a register, whatever the type selector's entries are.
constexpr int kRegisterType = 2;

/// What a signal is assigned to.
struct Assignment {
    int serverType = 0; ///< 0: first I/O type of its kind, 1: second one, 2: register
    QString port;       ///< point or register as shown; empty: none
    int element = 1;    ///< of a register, from 1; below 1: the element that is shown already
    bool isOn = false;  ///< its switch; means nothing without one
};

/// The server type behind an entry of a type selector, and back. A server type that the signal can't have stands for
/// its first entry.
int serverTypeOf(const PortKind& kind, int typeIndex);
int typeIndexOf(const PortKind& kind, int serverType);

/// What the node "weld_io_config" stores for a signal; a missing or mistyped member reads as 0, "" or false.
Assignment storedAssignment(const IoRowTemplate& signal, const QJsonObject& node);

/// Adds a signal's members to the node. The element goes out counted from 0; it is 0 for anything but a register.
void store(const IoRowTemplate& signal, const Assignment& assignment, QJsonObject* node);

/// The element of a register counted from 0, as it is stored and compared; 0 for anything else.
int biasOf(const Assignment& assignment);

#endif
