#include "pendixhost/nouniquewidgetregistry.h"

namespace pendix
{

NoUniqueWidgetRegistry& NoUniqueWidgetRegistry::instance()
{
    // Never destroyed: a factory's code may live in a library that is gone when the process ends.
    static auto* registry = new NoUniqueWidgetRegistry;
    return *registry;
}

QWidget* NoUniqueWidgetRegistry::create(const QString& plugin) const
{
    // A copy: the factory may take its own offer back while it runs.
    const std::function<QWidget*()> factory = m_factories.value(plugin);
    return factory ? factory() : nullptr;
}

} // namespace pendix

void OfferNoUniqueWidget(const QString& plugin, const std::function<QWidget*()>& factory)
{
    auto& factories = pendix::NoUniqueWidgetRegistry::instance().m_factories;
    if (factory) {
        factories.insert(plugin, factory);
    } else {
        factories.remove(plugin);
    }
}
