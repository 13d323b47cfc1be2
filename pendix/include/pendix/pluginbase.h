#ifndef PENDIX_PLUGINBASE_H
#define PENDIX_PLUGINBASE_H

#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>
#include <utility>
#include <vector>

namespace pendix
{

/// What a plug-in hands to the host: an object whose lifecycle the host drives in the order
/// construction, init, afterInit, render. idle and detach follow at the host's discretion.
/// All calls come on the GUI thread. The defaults do nothing.
class PluginBase : public QObject
{
    Q_OBJECT

public:
    explicit PluginBase(QObject* parent = nullptr);
    ~PluginBase() override;

    virtual void init();
    virtual void afterInit();
    virtual void render();
    virtual void idle();
    virtual void detach();

    /// Whether the host lays its default global style sheet over the plug-in's pages (true unless set).
    void setDefaultGlobalSheet(bool enabled);
    bool defaultGlobalSheet() const;

    /// The translated name under which the host lists the plug-in; empty unless set.
    void setPluginLabel(const QString& label);
    QString pluginLabel() const;

private:
    bool m_defaultGlobalSheet = true;
    QString m_pluginLabel;
};

/// The host's list of plug-in factories, filled by static initialisers while a library is loaded.
class PluginRegister
{
public:
    using Factory = std::function<PluginBase*(QObject*)>;

    /// Registers a factory under the plug-in's name. A name that is already known gets the new factory.
    void regist(const QString& name, std::function<PluginBase*(QObject*)> factory);

    /// The names in order of their first registration.
    QStringList names() const;

    /// A new plug-in object, owned by the caller; null for an unknown name or an empty factory.
    PluginBase* create(const QString& name, QObject* parent) const;

private:
    friend void unregisterPlugin(const QString& name);
    std::vector<std::pair<QString, Factory>> m_factories;
};

} // namespace pendix

/// The process-wide registry. Usable during static initialisation of a plug-in.
pendix::PluginRegister* pendixFactory();

#endif
