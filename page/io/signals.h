#ifndef PAGE_IO_SIGNALS_H
#define PAGE_IO_SIGNALS_H

#include <QString>
#include <QStringList>
#include <QVector>

/// The laser-welding signals that are assigned to the controller's ports, and the kinds of port they can have.

/// Registers that a signal can use, by what they hold and how the signal uses them. Indexes a pass's register lists.
enum class RegisterKind { BoolWritable, IntegerWritable, NumericWritable, BoolReadable, NumericReadable };

/// A type of I/O point: its entry in a type selector, and its points in natural order as the host gives them now.
struct IoType {
    const char* label;
    QStringList (*points)();
};

/// What a kind of signal can be assigned to. The entries of its type selector are first, second if there is one, and
/// registers.
struct PortKind {
    const IoType* first;
    const IoType* second; ///< null for a type selector of two entries
    RegisterKind registers;
    bool isOutput;

    constexpr int typeCount() const { return second == nullptr ? 2 : 3; }
    constexpr int registerIndex() const { return typeCount() - 1; }

    /// The I/O type behind an entry of the type selector; null for registers.
    constexpr const IoType* ioType(int typeIndex) const
    {
        return typeIndex == 0 ? first : (typeIndex == registerIndex() ? nullptr : second);
    }

    /// The entries of the type selector: names of the controller, the same in every language.
    QStringList typeEntries() const;
};

/// One laser-welding signal.
struct IoRowTemplate {
    const char* key; ///< prefix of its members in the node and of its widgets' object names
    const char* name;
    const PortKind* portKind;
    const char* switchStem; ///< what its switch and the switch's member are named after; null: always in use

    constexpr bool isOutput() const { return portKind->isOutput; }
    constexpr bool twoWayType() const { return portKind->typeCount() == 2; }
    constexpr bool hasEnableSwitch() const { return switchStem != nullptr; }

    /// Its port must be filled, and takes part in the rule of ports used twice, without a switch.
    constexpr bool alwaysActive() const { return !hasEnableSwitch(); }

    QString typeKey() const;
    QString portKey() const;
    QString biasKey() const;
    QString enabledKey() const; ///< empty without a switch
};

/// The signals in the order in which tables, node and rules have them.
const QVector<IoRowTemplate>& outputRowTemplates();
const QVector<IoRowTemplate>& inputRowTemplates();

/// The signal that turns the wire back.
constexpr char kRetractDirectionKey[] = "retract_direction";

/// The translation context of the signals' names.
constexpr char kSignalContext[] = "WeldioPage";

#endif
