#include "pendix/hostui.h"

#include "pendixhost/host.h"

#include <QDebug>

namespace
{

/// The installed host, or null after one warning that names the call which found none.
pendix::Host* hostFor(const char* call)
{
    pendix::Host* host = pendix::installedHost();
    if (host == nullptr) {
        qWarning("pendix: %s without an installed host", call);
    }
    return host;
}

} // namespace

pendix::InterfaceManager* pendixInterface()
{
    pendix::Host* host = hostFor("pendixInterface");
    return host != nullptr ? host->interfaceManager() : nullptr;
}

void ThrowLog(const QString& source, pendix::enThrowLogLevel level, const QString& text)
{
    if (pendix::Host* host = hostFor("ThrowLog")) {
        host->throwLog(source, level, text);
    }
}

void CreateCenterWidget(const QString& plugin, QWidget* widget)
{
    if (pendix::Host* host = hostFor("CreateCenterWidget")) {
        host->createCenterWidget(plugin, widget);
    }
}

void CreateStatusBar(const QString& plugin, QWidget* widget, int position)
{
    if (pendix::Host* host = hostFor("CreateStatusBar")) {
        host->createStatusBar(plugin, widget, position);
    }
}

void CreatePhyButtonList(const QString& plugin, const QString& name, const QList<pendix::PhysicalButton>& first,
                         const QList<pendix::PhysicalButton>& second, QStringList selector) // NOLINT: host contract
{
    if (pendix::Host* host = hostFor("CreatePhyButtonList")) {
        host->createPhyButtonList(plugin, name, first, second, selector);
    }
}

void ChangePhyButtonStatus(const QString& plugin, const QString& name, bool on)
{
    if (pendix::Host* host = hostFor("ChangePhyButtonStatus")) {
        host->changePhyButtonStatus(plugin, name, on);
    }
}

void ChangeModelWindowStatus(const QString& plugin, bool modal)
{
    if (pendix::Host* host = hostFor("ChangeModelWindowStatus")) {
        host->changeModelWindowStatus(plugin, modal);
    }
}

int GetPluginNoUniqueWidget(const QString& plugin, QWidget*& out)
{
    out = nullptr;
    pendix::Host* host = hostFor("GetPluginNoUniqueWidget");
    return host != nullptr ? host->pluginNoUniqueWidget(plugin, out) : 0;
}
