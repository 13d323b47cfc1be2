// The rules that a mapping must keep before it is saved, and what the operator is told of a broken one.
#include "common/operatormessage.h"
#include "page/weldiopage.h"

bool WeldioPage::registersPass(const AssignedSignals& rows, PortLists& lists) const
{
    const Business::Watch watch = m_business.watch();
    for (const AssignedSignal& row : rows) {
        const QString name = registerOf(row);
        if (name.isEmpty()) {
            continue;
        }
        const PortKind& kind = *row.signal->portKind;
        lists.ask(kind, kind.registerIndex());
        if (!watch.ownerLives()) {
            return false;
        }
        if (!lists.offered(kind, kind.registerIndex())->names().contains(name)) {
            showRow(*row.signal);
            const QString expected = row.signal->isOutput() ? tr("writable register") : tr("readable register");
            tellOperator(pendix::error,
                         tr("Signal %1: register \"%2\" is invalid or has wrong read/write permission, expected %3.")
                             .arg(row.label, name, expected));
            return false;
        }
    }
    return true;
}

bool WeldioPage::portsPass(const AssignedSignals& rows) const
{
    const std::vector<PortConfig> ports = occupiedPorts(rows);
    const PortConfig* twice = duplicatePort(ports);
    if (twice != nullptr) {
        showRow(*twice->signal);
        tellOperator(pendix::error, tr("Port %1 is already in use, save failed!").arg(twice->port));
    }
    return twice == nullptr;
}

bool WeldioPage::tablePasses(const AssignedSignals& rows, PortLists& lists) const
{
    return registersPass(rows, lists) && portsPass(rows);
}

bool WeldioPage::validateRowRegPort(const WeldIoRow& row) const
{
    PortLists lists(m_knownLists);
    return registersPass({row.value()}, lists);
}

bool WeldioPage::checkRowsPortConflict(const std::vector<WeldIoRow>& rows) const
{
    return portsPass(valuesOf(rows));
}

bool WeldioPage::checkLaserPortConfigValid() const
{
    PortLists lists(m_knownLists);
    return tablePasses(valuesOf(m_outputs->rows()), lists);
}

bool WeldioPage::checkBackPortConfigValid() const
{
    PortLists lists(m_knownLists);
    return tablePasses(valuesOf(m_inputs->rows()), lists);
}

bool WeldioPage::checkRowsPortRule(const std::vector<WeldIoRow>& rows) const
{
    return signalWithoutPort(valuesOf(rows)) == nullptr;
}

bool WeldioPage::checkIOconfigRule() const
{
    return checkRowsPortRule(m_outputs->rows()) && checkRowsPortRule(m_inputs->rows());
}
