#ifndef SIMULATOR_PROGRAMTOUR_H
#define SIMULATOR_PROGRAMTOUR_H

#include "simulator/tour.h"

namespace sim
{

/// The part of the tour at the program editor: writes a whole weld seam through the instructions' editors, without
/// typing any instruction text, then changes, refuses, saves and opens it.
QVector<Tour::Step> programSteps();

} // namespace sim

#endif
