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
/// While a handler waits for the controller, a second press of the same toggling button does nothing. Press and
/// release of a button that acts as long as it is held are never dropped: they wait for their turn.
PendantButtons pendantButtons(Corvane* plugin);

} // namespace pendix

#endif
