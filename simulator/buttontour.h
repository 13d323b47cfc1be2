#ifndef SIMULATOR_BUTTONTOUR_H
#define SIMULATOR_BUTTONTOUR_H

#include "simulator/tour.h"

namespace sim
{

/// The part of the tour beside the screen: holds and presses the pendant buttons, and opens the monitor.
QVector<Tour::Step> buttonSteps();

} // namespace sim

#endif
