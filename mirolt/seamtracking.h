#ifndef MIROLT_SEAMTRACKING_H
#define MIROLT_SEAMTRACKING_H

#include "mirolt/seamprofile.h"

#include <QObject>
#include <QSharedPointer>
#include <QTimer>

namespace mirolt
{

/// The name under which the host knows this plug-in.
constexpr char kPlugin[] = "Mirolt";

/// What the operator sets.
struct TrackingSettings {
    bool sensorOn = false;
    bool trackingOn = false; ///< never without the sensor
    Joint joint = Joint::Butt;
    int gain = 40;      ///< how much of a deviation one measurement takes back, 5..100 percent
    double offsetY = 0; ///< where to weld beside the seam, -10..10 mm
    double offsetZ = 0; ///< and above it, -10..10 mm

    bool operator==(const TrackingSettings& other) const;
};

/// The tracking behind all pages: its settings and what the sensor measures. Simulated: nothing of it
/// reaches the controller, and a new start begins with the sensor off.
class SeamTracking : public QObject
{
    Q_OBJECT

public:
    SeamTracking();

    const TrackingSettings& settings() const { return m_settings; }

    /// What an operator wants, from level 3 on. Switching the sensor off ends the tracking. Tells the operator of every
    /// start and end of the tracking, and why something is refused; then all stays as it is.
    void apply(TrackingSettings wanted);

    /// The last measurement. It stands still while the tracking is off.
    SeamProfile profile() const { return seamProfile(m_settings.joint, m_measurement); }

    /// How far the torch is from where it should be, in mm: x across the seam, y up. Zero while the tracking is off.
    QPointF deviation() const { return m_settings.trackingOn ? target() - m_torch : QPointF(); }

signals:
    /// The settings have changed; also after a refusal, for controls that show what was wanted.
    void changed();
    /// There is a new measurement.
    void measured();

private:
    bool mayApply(const TrackingSettings& wanted) const;
    QPointF target() const { return profile().seam + QPointF(m_settings.offsetY, m_settings.offsetZ); }
    void measure();

    TrackingSettings m_settings;
    QTimer m_clock;
    int m_measurement = 0;
    QPointF m_torch;
};

} // namespace mirolt

#endif
