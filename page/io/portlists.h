#ifndef PAGE_IO_PORTLISTS_H
#define PAGE_IO_PORTLISTS_H

#include "common/sortedlist.h"
#include "page/io/signals.h"
#include "widgets/namelistmodel.h"

#include <QHash>
#include <QJsonValue>
#include <QSharedPointer>

#include <array>
#include <optional>

/// The lists that a page gave its port selectors last, so that a list which the host gives unchanged is neither sorted
/// nor looked through again. Outlives the page while a pass is under way.
class KnownPortLists
{
public:
    using List = QSharedPointer<NameListModel>;

    /// The list of these names of an I/O type, which come in natural order.
    List ofPoints(const IoType* type, const QStringList& names);

    /// The list of these registers, which come in the order of the metadata.
    List ofRegisters(RegisterKind kind, const QStringList& names);

private:
    static List renewed(List* known, const QStringList& names);

    QHash<const IoType*, List> m_points;
    struct Registers {
        SortedList sorted;
        List list;
    };
    QHash<int, Registers> m_registers;
};

/// The port lists of one pass over the rows (a show, a reload, a save, a changed type): each type of I/O point and the
/// register metadata are asked of the host once, however many rows name them, and the metadata renews the lengths of
/// the registers (registerlengths).
class PortLists
{
public:
    explicit PortLists(QSharedPointer<KnownPortLists> known) : m_known(std::move(known)) {}

    /// Reads the register metadata. A host call, unless it was read in this pass.
    void readRegisters();

    /// Asks for what an entry of a type selector offers. A host call, unless that was asked for in this pass.
    void ask(const PortKind& kind, int typeIndex);

    /// What was asked for; null otherwise.
    KnownPortLists::List offered(const PortKind& kind, int typeIndex) const;

private:
    void askForRegisters();

    QSharedPointer<KnownPortLists> m_known;
    QHash<const IoType*, KnownPortLists::List> m_points;
    std::optional<QJsonValue> m_metadata;
    QVector<QStringList> m_registerNames;                 ///< by RegisterKind, not sorted; empty: not asked for
    mutable QHash<int, KnownPortLists::List> m_registers; ///< by RegisterKind; sorted when they are needed
};

#endif
