#ifndef PENDIXHOST_HOST_H
#define PENDIXHOST_HOST_H

#include "pendix/hostui.h"
#include "pendix/interfacemanager.h"
#include "pendix/pluginbase.h"
#include "pendix/rl.h"

#include <QHash>

namespace pendix
{

/// One finished log statement.
struct LogStatement {
    QString colour;    ///< terminal escape of the level
    QString tag;       ///< level letter and time stamp
    QStringList items; ///< the streamed items as texts
    QString filePath;  ///< log file without its suffix; empty: console only
};

/// The interface between the SDK and whoever plays the host: the simulator or a test. The SDK's free
/// functions forward to the installed host and do nothing else.
class Host
{
public:
    virtual ~Host();
    virtual InterfaceManager* interfaceManager() = 0;
    virtual void throwLog(const QString& source, enThrowLogLevel level, const QString& text) = 0;
    virtual void createCenterWidget(const QString& plugin, QWidget* widget) = 0;
    virtual void createStatusBar(const QString& plugin, QWidget* widget, int position) = 0;
    virtual void createPhyButtonList(const QString& plugin, const QString& name, const QList<PhysicalButton>& first,
                                     const QList<PhysicalButton>& second, const QStringList& selector) = 0;
    virtual void changePhyButtonStatus(const QString& plugin, const QString& name, bool on) = 0;
    virtual void changeModelWindowStatus(const QString& plugin, bool modal) = 0;
    virtual int pluginNoUniqueWidget(const QString& plugin, QWidget*& out) = 0;
    virtual void log(const LogStatement& statement) = 0;
};

/// Installs the host, which stays the caller's; null takes it away again. Install it before a plug-in is loaded.
void installHost(Host* host);
Host* installedHost();

/// Forgets a plug-in's factory. Call it before the library that holds the factory's code is unloaded.
void unregisterPlugin(const QString& name);

/// What the registry holds of one instruction; members that were not registered are empty.
struct RlInstruction {
    QString name;
    QString skeleton;
    QString description;
    QString pattern;
    QString defaultLine;
    QString group;
    std::function<RLContentBase*()> insertFactory;
    std::function<RLContentBase*()> propertyFactory;
    bool hasSpec = false;
    RlCustomCommandSpec spec;
};

/// The process-wide instruction registry, filled through RLManager. Clear it before a library that
/// registered factories is unloaded.
class RlRegistry
{
public:
    static RlRegistry& instance();
    QList<RlInstruction> instructions() const; ///< in order of first registration
    QString groupTitle(const QString& group) const;
    QStringList calls() const; ///< every registration in order, as "operation subject" ("createPattern LaserOn")
    void clear();

private:
    friend class RLManager;
    RlInstruction& entry(const char* operation, const QString& name);

    QList<RlInstruction> m_instructions;
    QHash<QString, QString> m_groupTitles;
    QStringList m_calls;
};

} // namespace pendix

#endif
