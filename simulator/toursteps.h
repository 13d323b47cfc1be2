#ifndef SIMULATOR_TOURSTEPS_H
#define SIMULATOR_TOURSTEPS_H

#include "simulator/tour.h"

#include <QVector>

namespace sim
{

/// The steps in their order; each starts from where the one before left the pendant.
QVector<Tour::Step> tourSteps();

} // namespace sim

#endif
