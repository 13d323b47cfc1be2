#ifndef MIROLT_SEAMPROFILE_H
#define MIROLT_SEAMPROFILE_H

#include <QPolygonF>

namespace mirolt
{

/// How the two parts meet, in the order in which an operator is offered them.
enum class Joint { Butt, Lap, Fillet };

constexpr double kHalfWidth = 12; ///< the sensor sees as far to either side of its middle, mm
constexpr double kHalfHeight = 7; ///< and as far up and down, mm

/// What the sensor sees in one measurement, in mm from its middle: x across the seam, y up.
struct SeamProfile {
    QPolygonF line; ///< the laser line from left to right
    QPointF seam;   ///< where the parts meet
};

/// The simulated measurement of that number, from 0 on: the seam wanders and the surface is rough, the
/// same on every run.
SeamProfile seamProfile(Joint joint, int measurement);

} // namespace mirolt

#endif
