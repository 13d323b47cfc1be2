#include "page/io/portlists.h"

#include "common/controller.h"
#include "common/registerfilter.h"
#include "common/registerlengths.h"

namespace
{

/// In the order of RegisterKind.
const QVector<registerfilter::Query>& registerQueries()
{
    using namespace registerfilter;
    static const QVector<Query> queries = {
        {boolTypes(), QLatin1String(kWritable)},    {integerTypes(), QLatin1String(kWritable)},
        {numericTypes(), QLatin1String(kWritable)}, {boolTypes(), QLatin1String(kReadable)},
        {numericTypes(), QLatin1String(kReadable)},
    };
    return queries;
}

} // namespace

KnownPortLists::List KnownPortLists::renewed(List* known, const QStringList& names)
{
    if (*known == nullptr || (*known)->names() != names) {
        *known = List::create(names);
    }
    return *known;
}

KnownPortLists::List KnownPortLists::ofPoints(const IoType* type, const QStringList& names)
{
    return renewed(&m_points[type], names);
}

KnownPortLists::List KnownPortLists::ofRegisters(RegisterKind kind, const QStringList& names)
{
    Registers& registers = m_registers[static_cast<int>(kind)];
    return renewed(&registers.list, registers.sorted.of(names));
}

void PortLists::readRegisters()
{
    if (!m_metadata) {
        m_metadata = controller::registerMetadata();
        registerlengths::renew(*m_metadata);
    }
}

void PortLists::ask(const PortKind& kind, int typeIndex)
{
    const IoType* io = kind.ioType(typeIndex);
    if (io == nullptr) {
        askForRegisters();
    } else if (!m_points.contains(io)) {
        const QStringList names = io->points(); // first: the host may spin the event loop
        m_points.insert(io, m_known->ofPoints(io, names));
    }
}

void PortLists::askForRegisters()
{
    if (!m_registerNames.isEmpty()) {
        return;
    }
    readRegisters();
    m_registerNames = registerfilter::filter(*m_metadata, registerQueries());
    for (QStringList& names : m_registerNames) {
        names.removeDuplicates();
    }
}

KnownPortLists::List PortLists::offered(const PortKind& kind, int typeIndex) const
{
    const IoType* io = kind.ioType(typeIndex);
    if (io != nullptr) {
        return m_points.value(io);
    }
    const int index = static_cast<int>(kind.registers);
    if (!m_registers.contains(index) && !m_registerNames.isEmpty()) {
        m_registers.insert(index, m_known->ofRegisters(kind.registers, m_registerNames.at(index)));
    }
    return m_registers.value(index);
}
