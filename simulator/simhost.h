#ifndef SIMULATOR_SIMHOST_H
#define SIMULATOR_SIMHOST_H

#include "pendixhost/host.h"

#include "simulator/buttonlists.h"
#include "simulator/journal.h"
#include "simulator/simulatedcontroller.h"

#include <QMap>
#include <QPointer>
#include <QSet>

namespace sim
{

/// The pendant's own half: what plug-ins call. It passes reads and commands on to the simulated controller,
/// writes every call into the journal and keeps the widgets that plug-ins hand over until a window shows
/// them. Installed as the host for as long as it lives.
class SimHost : public pendix::InterfaceManager, public pendix::Host
{
    Q_OBJECT

public:
    SimHost(SimulatedController* controller, Journal* journal);
    ~SimHost() override;

    /// The centre page that a plug-in has given; null if it gave none or it is gone.
    QWidget* page(const QString& plugin) const { return m_pages.value(plugin); }

    /// All pendant buttons: the plug-ins' and the pendant's own.
    ButtonLists* buttonLists() { return &m_buttons; }
    /// Whether a plug-in has said that a window of its own is open that goes before everything else.
    bool isModal(const QString& plugin) const { return m_modal.contains(plugin); }

    /// Subscribes a plug-in to live data of the controller, until it ends that with disconnectVexaServiceData.
    void subscribe(const QString& plugin, const QString& data);
    bool isSubscribed(const QString& plugin, const QString& data) const;

    /// Takes back what a plug-in that failed has handed over.
    void withdraw(const QString& plugin);
    /// Tells the plug-ins that the connection to the controller came up.
    void announceConnection();

    // InterfaceManager
    QJsonArray commandCustomData(QObject* sender, const QString& plugin, const QJsonObject& command) override;
    QJsonArray commandCustomData(QObject* sender, const QString& plugin, const QString& command,
                                 const QString& value) override;
    QJsonValue getVexaServiceData(const QString& name) override;
    void disconnectVexaServiceData(const QString& plugin, const QString& data, const QString& extra) override;
    QJsonValue getNodeData(const QString& name) override;
    QStringList getIOByType(const QString& type) override;
    QHash<QString, QStringList> getRegisterHash() override;
    QJsonValue getRegisterValue() override;
    bool getRobotEleStatus() override;
    int getUserOperateLevel() override;
    QStringList getPointNameList() override;
    void addCurrentPoint(const QString& name, bool overwrite, const QString& tool, const QString& wobj) override;
    QStringList getToolList() override;
    QStringList getWobjList() override;
    QStringList getSpeedList() override;
    QStringList getZoneList() override;
    QString getCurTool() override;
    QString getCurWobj() override;

    // Host
    pendix::InterfaceManager* interfaceManager() override { return this; }
    void throwLog(const QString& source, pendix::enThrowLogLevel level, const QString& text) override;
    void createCenterWidget(const QString& plugin, QWidget* widget) override;
    void createStatusBar(const QString& plugin, QWidget* widget, int position) override;
    void createPhyButtonList(const QString& plugin, const QString& name, const QList<pendix::PhysicalButton>& first,
                             const QList<pendix::PhysicalButton>& second, const QStringList& selector) override;
    void changePhyButtonStatus(const QString& plugin, const QString& name, bool on) override;
    void changeModelWindowStatus(const QString& plugin, bool modal) override;
    int pluginNoUniqueWidget(const QString& plugin, QWidget*& out) override;
    void log(const pendix::LogStatement& statement) override;

signals:
    void operatorMessage(const QString& source, int level, const QString& text);
    /// A page was handed over; the receiver asks page() for it and becomes its parent.
    void pageGiven(const QString& plugin);
    /// A status item was handed over; the receiver becomes its parent.
    void statusItemGiven(const QString& plugin, QWidget* item, int position);
    /// A plug-in failed after it had handed something over: its page and status item are to be taken away.
    void pluginWithdrawn(const QString& plugin);
    void modalChanged(const QString& plugin, bool modal);

private:
    void setModal(const QString& plugin, bool modal);
    QStringList readList(const QString& subject, const QStringList& names);
    QString readName(const QString& subject, const QString& name);
    static void deleteUntaken(const QList<QPointer<QWidget>>& widgets);

    SimulatedController* m_controller;
    Journal* m_journal;
    ButtonLists m_buttons;
    QSet<QString> m_modal;
    QSet<QPair<QString, QString>> m_subscriptions; ///< plug-in and name of the data
    QMap<QString, QPointer<QWidget>> m_pages;
    QMultiMap<QString, QPointer<QWidget>> m_given; ///< what plug-ins handed over; what has no parent is this host's
};

/// Name of an operator message's level; a number outside 0..2 stands for itself.
QString messageLevelName(int level);

} // namespace sim

#endif
