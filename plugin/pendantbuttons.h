#ifndef PLUGIN_PENDANTBUTTONS_H
#define PLUGIN_PENDANTBUTTONS_H

#include "pendix/hostui.h"

namespace pendix
{

class Corvane;

/// The package's buttons beside the pendant's hardware keys, in the two lists in which the host gets them.
struct PendantButtons {
    QList<PhysicalButton> first;  ///< work mode, wire feed, red light
    QList<PhysicalButton> second; ///< protective gas, wire retract
};

/// Describes the buttons. Their handlers send one command each, with the plug-in object as sender, and tell the
/// operator the outcome; they do nothing once the plug-in object is gone. No button remembers anything: the
/// controller's values decide what the toggling ones send.
///
/// While a handler waits for the host, a second press of the same toggling button does nothing. A button that acts as
/// long as it is held keeps the last state it was told, and before a start the stop of the one before it: what was
/// superseded sends and says nothing. A start that the operator has let go of before it was sent is not sent.
PendantButtons pendantButtons(Corvane* plugin);

} // namespace pendix

#endif
