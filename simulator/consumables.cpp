#include "simulator/consumables.h"

#include "simulator/clock.h"

namespace sim
{

Consumables::Consumables() : m_clock(elapsedMs) {}

void Consumables::runWire(Wire direction, double speed)
{
    m_position = wirePosition();
    m_since = now();
    m_wire = direction;
    m_speed = direction == Wire::Stopped ? 0 : qBound(0.0, speed, kFastestWire);
}

void Consumables::stopWire()
{
    runWire(Wire::Stopped, 0);
}

double Consumables::wirePosition() const
{
    constexpr double kMsPerSecond = 1000;
    const double way = m_speed * static_cast<double>(now() - m_since) / kMsPerSecond;
    return m_wire == Wire::Retracting ? m_position - way : m_position + way;
}

void Consumables::openGas(double ms)
{
    m_gasEnd = now() + static_cast<qint64>(qBound(0.0, ms, kLongestGasMs));
}

qint64 Consumables::gasLeft() const
{
    return qMax<qint64>(0, m_gasEnd - now());
}

} // namespace sim
