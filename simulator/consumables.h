#ifndef SIMULATOR_CONSUMABLES_H
#define SIMULATOR_CONSUMABLES_H

#include <QtGlobal>

#include <functional>

namespace sim
{

/// Wire and protective gas of the simulated cell, as far as keys on the pendant move them. Where they stand follows
/// from a clock whenever it is asked for: there is no timer that could drift or be late.
class Consumables
{
public:
    enum class Wire { Stopped, Feeding, Retracting };

    /// Milliseconds that never go back.
    using Clock = std::function<qint64()>;

    static constexpr double kFastestWire = 1000;     ///< mm/s
    static constexpr double kLongestGasMs = 3600000; ///< an hour

    Consumables();

    /// To be set before anything runs.
    void setClock(const Clock& clock) { m_clock = clock; }
    qint64 now() const { return m_clock(); }

    /// Runs the wire that way until it is told otherwise. speed: mm/s, bounded to 0..kFastestWire.
    void runWire(Wire direction, double speed);
    void stopWire();
    Wire wire() const { return m_wire; }
    /// mm/s, 0 or more whichever way the wire runs.
    double wireSpeed() const { return m_speed; }
    /// mm of wire that were fed since the start, less those that were retracted.
    double wirePosition() const;

    /// Opens the gas for a time that counts from now on, also when it is open. ms: bounded to 0..kLongestGasMs.
    void openGas(double ms);
    /// Milliseconds until the gas closes by itself; 0: it is closed.
    qint64 gasLeft() const;

private:
    Clock m_clock;
    Wire m_wire = Wire::Stopped;
    double m_speed = 0;
    double m_position = 0; ///< where the wire was at the time m_since
    qint64 m_since = 0;
    qint64 m_gasEnd = 0;
};

} // namespace sim

#endif
