#ifndef CHECKS_SUPPORT_IOSIGNALS_H
#define CHECKS_SUPPORT_IOSIGNALS_H

#include <QJsonValue>
#include <QStringList>
#include <QVector>

/// A signal of the weld I/O mapping as an integrator knows it: from the schema of the node, not from the page's tables.
struct IoSignal {
    static constexpr int kRegister = 2; ///< the server type of a register

    QString key;         ///< of its members "<key>_type", "<key>_port" and "<key>_bias"
    QString switchKey;   ///< member that switches it on; empty: always in use
    QStringList ioTypes; ///< by server type, without the register: "AO" and "GO"

    bool isOutput() const { return ioTypes.first().endsWith(QLatin1Char('O')); }

    /// The registers that it can be assigned to: bits, whole numbers or numbers, to be written or to be read.
    QStringList registers(const QJsonValue& metadata) const;
};

/// All signals, outputs first. A schema that does not describe them ends the process.
const QVector<IoSignal>& ioSignals();

#endif
