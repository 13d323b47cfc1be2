#ifndef CHECKS_MONKEY_WATCHEDHOST_H
#define CHECKS_MONKEY_WATCHEDHOST_H

#include "checks/monkey/logbook.h"
#include "simulator/simhost.h"

#include <QSet>
#include <QVector>

#include <functional>
#include <optional>
#include <vector>

/// The simulator's host with a referee in it: judges every command and every message of the plug-ins.
///
/// A command may leave, and a point be stored, only when the host, asked in the course of the same action, has answered
/// with a level that may change things. Judged by action, since an operator's press may send a second command after an
/// answer during which somebody else has logged in; asked at all, since a page that remembers the level would be wrong
/// sooner or later. While a page's command is under way, it sends no other. A stored point has a name and replaces
/// none.
class WatchedHost : public sim::SimHost
{
    Q_OBJECT

public:
    WatchedHost(sim::SimulatedController* controller, sim::Journal* journal, Logbook* logbook);

    /// One action of the operator, from its beginning to its end; actions nest where event loops do.
    class Action
    {
    public:
        explicit Action(WatchedHost* host) : m_host(host) { m_host->m_actions.emplace_back(); }
        ~Action() { m_host->m_actions.pop_back(); }
        Q_DISABLE_COPY(Action)

    private:
        WatchedHost* m_host;
    };
    int depth() const { return static_cast<int>(m_actions.size()) - 1; }

    QJsonArray commandCustomData(QObject* sender, const QString& plugin, const QJsonObject& command) override;
    int getUserOperateLevel() override;
    void addCurrentPoint(const QString& name, bool overwrite, const QString& tool, const QString& wobj) override;
    void throwLog(const QString& source, pendix::enThrowLogLevel level, const QString& text) override;

    /// What becomes of an answer on its way to whoever asked; none: nothing.
    std::function<QJsonArray(const QJsonArray&)> bend;

    /// Takes note of the widgets that are shown, whose show commands some pages may send.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct ActionState {
        std::optional<int> toldLevel; ///< what was answered last
        QSet<const QObject*> shown;   ///< the widgets that were shown in it
    };

    void judgeLevel(const QString& what);
    void judge(const QObject* sender, const QString& name, const QJsonValue& argument);
    bool mayLeaveByItself(const QObject* sender, const QString& name, const QJsonValue& argument) const;

    Logbook* m_logbook;
    QVector<const QObject*> m_waiting;  ///< the pages whose command is under way
    std::vector<ActionState> m_actions; ///< the first one is what happens outside of any action
};

#endif
