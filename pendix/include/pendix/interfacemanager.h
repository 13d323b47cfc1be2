#ifndef PENDIX_INTERFACEMANAGER_H
#define PENDIX_INTERFACEMANAGER_H

#include <QHash>
#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QObject>
#include <QString>
#include <QStringList>

namespace pendix
{

/// The road to the controller: commands, values, catalogues and the operator's level. Every call is
/// synchronous and made on the GUI thread; an implementation may spin the event loop while it waits.
class InterfaceManager : public QObject
{
    Q_OBJECT

public:
    explicit InterfaceManager(QObject* parent = nullptr);
    ~InterfaceManager() override;

    /// Executes a command object ({command name: argument}) on the plug-in's controller service and
    /// returns the result array; an empty array means that nothing answered.
    virtual QJsonArray commandCustomData(QObject* sender, const QString& plugin, const QJsonObject& command) = 0;

    /// The same with the command name and a text argument given apart.
    virtual QJsonArray commandCustomData(QObject* sender, const QString& plugin, const QString& command,
                                         const QString& value) = 0;

    /// Current value of a service node or of a dotted path below one; undefined or null if there is none.
    virtual QJsonValue getVexaServiceData(const QString& name) = 0;

    /// Ends the plug-in's subscription to the named service data.
    virtual void disconnectVexaServiceData(const QString& plugin, const QString& data, const QString& extra) = 0;

    /// A setting of the host by name ("brisel.fontzoom"); undefined if absent.
    virtual QJsonValue getNodeData(const QString& name) = 0;

    /// Names of the I/O signals of one type: "DO", "DI", "AO", "AI", "GO" or "GI".
    virtual QStringList getIOByType(const QString& type) = 0;

    /// The controller's registers, keyed by name.
    virtual QHash<QString, QStringList> getRegisterHash() = 0;

    /// Register metadata: an array with one object per register.
    virtual QJsonValue getRegisterValue() = 0;

    /// True while the robot is powered on.
    virtual bool getRobotEleStatus() = 0;

    /// Access level of the logged-in operator, 0 to 5.
    virtual int getUserOperateLevel() = 0;

    virtual QStringList getPointNameList() = 0;

    /// Stores the robot's current position as a point of the given name.
    virtual void addCurrentPoint(const QString& name, bool overwrite, const QString& tool, const QString& wobj) = 0;

    virtual QStringList getToolList() = 0;
    virtual QStringList getWobjList() = 0;
    virtual QStringList getSpeedList() = 0;
    virtual QStringList getZoneList() = 0;
    virtual QString getCurTool() = 0;
    virtual QString getCurWobj() = 0;

signals:
    /// The connection to the controller was established or re-established.
    void sigNetworkConnect();
};

} // namespace pendix

/// The host's interface manager, one for the process; null when no host is installed.
pendix::InterfaceManager* pendixInterface();

#endif
