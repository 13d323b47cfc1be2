#ifndef SIMULATOR_MONITORSTREAM_H
#define SIMULATOR_MONITORSTREAM_H

#include <QJsonObject>
#include <QVariantMap>

namespace sim
{

/// What the monitor stream is made of at one moment.
struct MonitorMoment {
    QJsonObject nodes;      ///< configuration nodes by name
    bool isVirtual = false; ///< the laser stays dark and no wire is fed into the seam
    double manualWire = 0;  ///< mm/s at which a key on the pendant runs the wire; 0: none does
    qint64 ms = 0;          ///< on any clock; the values swing with it
};

/// The live values of a weld that would be under way: get_laser_power in W, get_laser_frequency in Hz,
/// get_laser_dutycycle in %, get_laser_wirespeed and get_laser_weldspeed in mm/s, each 0 or more with two decimals,
/// the duty cycle at most 100. The power swings around that of the setting node, the others around the first
/// parameter set; where the nodes have no number, around 0. The same moment gives the same values.
QVariantMap monitorValues(const MonitorMoment& moment);

} // namespace sim

#endif
