#ifndef PENDIXHOST_NOUNIQUEWIDGETREGISTRY_H
#define PENDIXHOST_NOUNIQUEWIDGETREGISTRY_H

#include "pendix/nouniquewidget.h"

#include <QHash>

namespace pendix
{

/// The process-wide widget offers of plug-ins, filled through OfferNoUniqueWidget. A host answers
/// GetPluginNoUniqueWidget with it.
class NoUniqueWidgetRegistry
{
public:
    static NoUniqueWidgetRegistry& instance();

    bool offers(const QString& plugin) const { return m_factories.contains(plugin); }

    /// A new widget, the caller's; null when the plug-in offers none or its factory gave none. What the factory
    /// throws comes through.
    QWidget* create(const QString& plugin) const;

    /// Call it before the plug-in's objects go and before its library is unloaded: both may be in its factory.
    void forget(const QString& plugin) { m_factories.remove(plugin); }

private:
    friend void ::OfferNoUniqueWidget(const QString& plugin, const std::function<QWidget*()>& factory);

    QHash<QString, std::function<QWidget*()>> m_factories;
};

} // namespace pendix

#endif
