#ifndef CHECKS_MONKEY_WATCHEDHOST_H
#define CHECKS_MONKEY_WATCHEDHOST_H

#include "checks/monkey/referee.h"
#include "simulator/simhost.h"

#include <functional>

/// The simulator's host with a referee in it, who hears of every command, question and message of the plug-ins. Like a
/// real one it may spin the event loop in most of these calls; the font zoom and log lines come at once,
/// and so do the neighbour's widget and the end of a subscription.
class WatchedHost : public sim::SimHost
{
    Q_OBJECT

public:
    WatchedHost(sim::SimulatedController* controller, sim::Journal* journal, Logbook* logbook);

    /// One action of the operator, from its beginning to its end; actions nest where event loops do.
    class Action
    {
    public:
        explicit Action(WatchedHost* host) : m_referee(&host->m_referee) { m_referee->beginAction(); }
        ~Action() { m_referee->endAction(); }
        Q_DISABLE_COPY(Action)

    private:
        Referee* m_referee;
    };
    int depth() const { return m_referee.depth(); }

    /// Called before a question is answered and while a message is shown; anything may happen in it.
    std::function<void()> meanwhile;
    /// What becomes of an answer on its way to whoever asked; none: nothing.
    std::function<QJsonArray(const QJsonArray&)> bend;

    QJsonArray commandCustomData(QObject* sender, const QString& plugin, const QJsonObject& command) override;
    QJsonValue getVexaServiceData(const QString& name) override;
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
    void throwLog(const QString& source, pendix::enThrowLogLevel level, const QString& text) override;
    /// Gives the keys handlers that tell the referee where the operator's finger is.
    void createPhyButtonList(const QString& plugin, const QString& name, const QList<pendix::PhysicalButton>& first,
                             const QList<pendix::PhysicalButton>& second, const QStringList& selector) override;

    /// Takes note of the widgets that are shown, whose show commands some pages may send, and of presses.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void spin();
    template <typename Question>
    auto answer(Question question);
    QList<pendix::PhysicalButton> watched(QList<pendix::PhysicalButton> buttons);

    Logbook* m_logbook;
    Referee m_referee;
};

#endif
