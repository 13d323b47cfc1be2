#include "pendix/pluginbase.h"

#include "pendixhost/host.h"

#include <algorithm>

namespace pendix
{

PluginBase::PluginBase(QObject* parent) : QObject(parent) {}

PluginBase::~PluginBase() = default;

void PluginBase::init() {}

void PluginBase::afterInit() {}

void PluginBase::render() {}

void PluginBase::idle() {}

void PluginBase::detach() {}

void PluginBase::setDefaultGlobalSheet(bool enabled)
{
    m_defaultGlobalSheet = enabled;
}

bool PluginBase::defaultGlobalSheet() const
{
    return m_defaultGlobalSheet;
}

void PluginBase::setPluginLabel(const QString& label)
{
    m_pluginLabel = label;
}

QString PluginBase::pluginLabel() const
{
    return m_pluginLabel;
}

void PluginRegister::regist(const QString& name, std::function<PluginBase*(QObject*)> factory)
{
    for (auto& [known, knownFactory] : m_factories) {
        if (known == name) {
            knownFactory = std::move(factory);
            return;
        }
    }
    m_factories.emplace_back(name, std::move(factory));
}

QStringList PluginRegister::names() const
{
    QStringList result;
    for (const auto& entry : m_factories) {
        result.append(entry.first);
    }
    return result;
}

PluginBase* PluginRegister::create(const QString& name, QObject* parent) const
{
    for (const auto& [known, factory] : m_factories) {
        if (known == name && factory) {
            return factory(parent);
        }
    }
    return nullptr;
}

void unregisterPlugin(const QString& name)
{
    auto& factories = pendixFactory()->m_factories;
    factories.erase(
        std::remove_if(factories.begin(), factories.end(), [&name](const auto& entry) { return entry.first == name; }),
        factories.end());
}

} // namespace pendix

pendix::PluginRegister* pendixFactory()
{
    // Never destroyed: a factory's code may live in a library that is gone when the process ends.
    static auto* registry = new pendix::PluginRegister;
    return registry;
}
