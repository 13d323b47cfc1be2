#include "mirolt/seamprofile.h"

#include <QtMath>

namespace mirolt
{

namespace
{

constexpr int kPoints = 161;
constexpr double kRoughness = 0.08;

/// Height of the surface, in mm above the seam, so far to the right of it.
double surface(Joint joint, double distance)
{
    const double side = qAbs(distance);
    switch (joint) {
    case Joint::Butt: {
        constexpr double kDepth = 2.4;
        constexpr double kSlope = 1.6;
        return qMin(kDepth, kSlope * side);
    }
    case Joint::Lap: {
        constexpr double kSheet = 2.2;
        constexpr double kEdge = 0.3;
        return kSheet * qBound(0.0, distance / kEdge, 1.0);
    }
    case Joint::Fillet:
        return qTan(qDegreesToRadians(24.0)) * side;
    }
    return 0;
}

/// Between -1 and 1, as irregular as a ground surface under a laser.
double roughness(int measurement, int point)
{
    auto mixed = static_cast<quint32>(measurement) * 2654435761U + static_cast<quint32>(point) * 2246822519U;
    mixed = (mixed ^ (mixed >> 15)) * 2654435761U;
    return (mixed >> 16) / 32767.5 - 1;
}

/// Where the seam lies: two slow waves, as of a part that was not clamped quite straight.
QPointF seamAt(int measurement)
{
    return {2.5 * qSin(measurement / 23.0 + 0.6), -2 + 0.5 * qSin(measurement / 14.0)};
}

} // namespace

SeamProfile seamProfile(Joint joint, int measurement)
{
    SeamProfile profile;
    profile.seam = seamAt(measurement);
    for (int point = 0; point < kPoints; ++point) {
        const double x = kHalfWidth * (2.0 * point / (kPoints - 1) - 1);
        const double height = surface(joint, x - profile.seam.x()) + kRoughness * roughness(measurement, point);
        profile.line.append({x, profile.seam.y() + height});
    }
    return profile;
}

} // namespace mirolt
