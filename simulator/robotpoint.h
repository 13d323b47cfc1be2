#ifndef SIMULATOR_ROBOTPOINT_H
#define SIMULATOR_ROBOTPOINT_H

#include <QString>

#include <tuple>

namespace sim
{

/// Where the robot's tool is, in millimetres, and how it is turned: Euler angles in degrees.
struct Pose {
    double x = 0;
    double y = 0;
    double z = 0;
    double a = 0;
    double b = 0;
    double c = 0;
};

/// One number of a pose, for whatever goes through all six.
struct Coordinate {
    const char* name;
    double Pose::*value;
    double limit;     ///< the number lies from -limit to limit
    const char* unit; ///< in UTF-8, with the blank before it where there is one
};

inline constexpr double kFarthestMm = 999999;
inline constexpr double kFullTurn = 360;

inline constexpr Coordinate kCoordinates[] = {
    {"X", &Pose::x, kFarthestMm, " mm"},    {"Y", &Pose::y, kFarthestMm, " mm"},
    {"Z", &Pose::z, kFarthestMm, " mm"},    {"A", &Pose::a, kFullTurn, "\xc2\xb0"},
    {"B", &Pose::b, kFullTurn, "\xc2\xb0"}, {"C", &Pose::c, kFullTurn, "\xc2\xb0"},
};

/// A position that the controller keeps under a name, with the tool and the work object it is meant for.
struct RobotPoint {
    QString name;
    Pose pose;
    QString tool;
    QString wobj;
};

inline bool operator==(const Pose& one, const Pose& other)
{
    const auto numbers = [](const Pose& pose) { return std::tie(pose.x, pose.y, pose.z, pose.a, pose.b, pose.c); };
    return numbers(one) == numbers(other);
}

inline bool operator==(const RobotPoint& one, const RobotPoint& other)
{
    return one.name == other.name && one.pose == other.pose && one.tool == other.tool && one.wobj == other.wobj;
}

} // namespace sim

#endif
