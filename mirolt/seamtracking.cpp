#include "mirolt/seamtracking.h"

#include "pendix/hostui.h"
#include "pendix/interfacemanager.h"

namespace mirolt
{

namespace
{

constexpr int kLowestLevel = 3;
constexpr int kMeasureMs = 100;

void tell(pendix::enThrowLogLevel level, const QString& text)
{
    ThrowLog(QString::fromLatin1(kPlugin), level, text);
}

bool isPermitted()
{
    pendix::InterfaceManager* host = pendixInterface();
    return host != nullptr && host->getUserOperateLevel() >= kLowestLevel;
}

} // namespace

bool TrackingSettings::operator==(const TrackingSettings& other) const
{
    // Both offsets come from the same spin boxes, which round them: equal is equal.
    return sensorOn == other.sensorOn && trackingOn == other.trackingOn && joint == other.joint && gain == other.gain &&
           offsetY == other.offsetY && offsetZ == other.offsetZ;
}

SeamTracking::SeamTracking()
{
    m_clock.setInterval(kMeasureMs);
    connect(&m_clock, &QTimer::timeout, this, &SeamTracking::measure);
}

bool SeamTracking::mayApply(const TrackingSettings& wanted) const
{
    if (!isPermitted()) {
        tell(pendix::warning, tr("Insufficient user permissions!"));
        return false;
    }
    if (wanted.trackingOn && !wanted.sensorOn && !m_settings.trackingOn) {
        tell(pendix::warning, tr("Switch the sensor on first"));
        return false;
    }
    return true;
}

void SeamTracking::apply(TrackingSettings wanted)
{
    if (wanted == m_settings) {
        return;
    }
    if (mayApply(wanted)) {
        wanted.trackingOn = wanted.trackingOn && wanted.sensorOn;
        const bool wasOn = m_settings.trackingOn;
        m_settings = wanted;
        if (wanted.trackingOn && !wasOn) {
            m_torch = target();
            m_clock.start();
            tell(pendix::information, tr("Seam tracking started"));
        } else if (wasOn && !wanted.trackingOn) {
            m_clock.stop();
            tell(pendix::information, tr("Seam tracking stopped"));
        }
    }
    emit changed();
}

void SeamTracking::measure()
{
    ++m_measurement;
    m_torch += m_settings.gain / 100.0 * (target() - m_torch);
    emit measured();
}

} // namespace mirolt
