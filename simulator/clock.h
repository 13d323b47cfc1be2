#ifndef SIMULATOR_CLOCK_H
#define SIMULATOR_CLOCK_H

#include <QDateTime>

namespace sim
{

/// The clock by which the pendant dates what it shows: the computer's, unless it was stopped.
QDateTime now();

/// Milliseconds of a clock that nobody sets back, for what lasts a time; stands still while the other one does.
qint64 elapsedMs();

/// Stops the clock for the rest of the program, for pictures that are to be the same on every run.
void stopClock();

} // namespace sim

#endif
