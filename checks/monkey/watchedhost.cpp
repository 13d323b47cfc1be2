#include "checks/monkey/watchedhost.h"

#include "checks/monkey/operatormessages.h"

#include <QCoreApplication>
#include <QEvent>

namespace
{
constexpr int kLowestChangingLevel = 3;
}

WatchedHost::WatchedHost(sim::SimulatedController* controller, sim::Journal* journal, Logbook* logbook)
    : sim::SimHost(controller, journal), m_logbook(logbook), m_actions(1)
{
    qApp->installEventFilter(this);
}

int WatchedHost::getUserOperateLevel()
{
    const int level = sim::SimHost::getUserOperateLevel();
    m_actions.back().toldLevel = level;
    m_logbook->count(level < kLowestChangingLevel ? QStringLiteral("refused levels")
                                                  : QStringLiteral("sufficient levels"));
    return level;
}

QJsonArray WatchedHost::commandCustomData(QObject* sender, const QString& plugin, const QJsonObject& command)
{
    if (command.size() != 1) {
        m_logbook->complain(QStringLiteral("a command object has %1 members").arg(command.size()));
    }
    for (auto member = command.constBegin(); member != command.constEnd(); ++member) {
        judge(sender, member.key(), member.value());
    }
    // A pendant button may come up while its press is under way; these have another sender.
    const bool isPage = sender != nullptr && sender->isWidgetType();
    if (isPage && m_waiting.contains(sender)) {
        m_logbook->complain(QStringLiteral("%1 sent a command while another one was under way")
                                .arg(QLatin1String(sender->metaObject()->className())));
    }
    m_waiting.append(isPage ? sender : nullptr);
    const QJsonArray answer = sim::SimHost::commandCustomData(sender, plugin, command);
    m_waiting.removeLast();
    QJsonArray given = bend ? bend(answer) : answer;
    m_logbook->note(QStringLiteral("    answered %1").arg(sim::Journal::compact(given)));
    return given;
}

void WatchedHost::judge(const QObject* sender, const QString& name, const QJsonValue& argument)
{
    m_logbook->note(QStringLiteral("    %1 leaves: %2").arg(name, sim::Journal::compact(argument)));
    m_logbook->count(QStringLiteral("commands"));
    if (mayLeaveByItself(sender, name, argument)) {
        return;
    }
    judgeLevel(name);
}

void WatchedHost::judgeLevel(const QString& what)
{
    const std::optional<int> level = m_actions.back().toldLevel;
    if (!level) {
        m_logbook->complain(QStringLiteral("%1 was sent without asking for the operator's level").arg(what));
    } else if (*level < kLowestChangingLevel) {
        m_logbook->complain(QStringLiteral("%1 was sent at operator level %2").arg(what, QString::number(*level)));
    }
}

void WatchedHost::addCurrentPoint(const QString& name, bool overwrite, const QString& tool, const QString& wobj)
{
    m_logbook->note(QStringLiteral("    stores point %1").arg(name));
    m_logbook->count(QStringLiteral("points"));
    judgeLevel(QStringLiteral("a point"));
    if (name.trimmed().isEmpty() || overwrite) {
        m_logbook->complain(QStringLiteral("a point \"%1\" was to be stored, or one replaced").arg(name));
    }
    sim::SimHost::addCurrentPoint(name, overwrite, tool, wobj);
}

bool WatchedHost::mayLeaveByItself(const QObject* sender, const QString& name, const QJsonValue& argument) const
{
    // Curves that are drawn are computed again when their page is shown.
    if (name == QLatin1String("compute_curve_config")) {
        return sender != nullptr && sender->inherits("CharacteristicsCurvePage") &&
               m_actions.back().shown.contains(sender);
    }
    // Everybody may look: the pendant starts the monitor's stream, whoever closes the monitor ends it.
    return name == QLatin1String("start_laserweld_monitor") &&
           (argument == QJsonValue(false) || (sender != nullptr && sender->inherits("sim::MonitorOwner")));
}

void WatchedHost::throwLog(const QString& source, pendix::enThrowLogLevel level, const QString& text)
{
    m_logbook->note(QStringLiteral("    told: %1: %2").arg(sim::messageLevelName(level), text));
    const QString known = operatormessages::known(level, text);
    if (known.isEmpty()) {
        m_logbook->complain(QStringLiteral("the operator was told what is no known text of level %1: %2")
                                .arg(QString::number(level), text));
    } else {
        m_logbook->used(QStringLiteral("message \"%1\"").arg(known));
    }
    sim::SimHost::throwLog(source, level, text);
}

bool WatchedHost::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show) {
        m_actions.back().shown.insert(watched);
    }
    return sim::SimHost::eventFilter(watched, event);
}
