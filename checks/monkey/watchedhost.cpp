#include "checks/monkey/watchedhost.h"

#include <QCoreApplication>
#include <QEvent>

WatchedHost::WatchedHost(sim::SimulatedController* controller, sim::Journal* journal, Logbook* logbook)
    : sim::SimHost(controller, journal), m_logbook(logbook), m_referee(logbook)
{
    qApp->installEventFilter(this);
}

void WatchedHost::spin()
{
    if (meanwhile) {
        meanwhile();
    }
}

/// The answer to a question that the referee need not know: what it was does not matter, only that it was one.
template <typename Question>
auto WatchedHost::answer(Question question)
{
    spin();
    m_referee.otherCall();
    return question();
}

QJsonArray WatchedHost::commandCustomData(QObject* sender, const QString& plugin, const QJsonObject& command)
{
    if (command.size() != 1) {
        m_logbook->complain(QStringLiteral("a command object has %1 members").arg(command.size()));
    }
    for (auto member = command.constBegin(); member != command.constEnd(); ++member) {
        m_logbook->note(QStringLiteral("    %1 leaves: %2").arg(member.key(), sim::Journal::compact(member.value())));
        m_referee.commandLeaves(sender, member.key(), member.value());
    }
    m_referee.beginWaiting(sender);
    const QJsonArray proper = sim::SimHost::commandCustomData(sender, plugin, command);
    m_referee.endWaiting();
    QJsonArray given = bend ? bend(proper) : proper;
    m_logbook->note(QStringLiteral("    answered %1").arg(sim::Journal::compact(given)));
    return given;
}

int WatchedHost::getUserOperateLevel()
{
    spin();
    const int level = sim::SimHost::getUserOperateLevel();
    m_referee.levelAnswered(level);
    return level;
}

bool WatchedHost::getRobotEleStatus()
{
    spin();
    const bool powered = sim::SimHost::getRobotEleStatus();
    m_referee.powerAnswered(powered);
    return powered;
}

QJsonValue WatchedHost::getVexaServiceData(const QString& name)
{
    spin();
    QJsonValue node = sim::SimHost::getVexaServiceData(name);
    m_referee.nodeAnswered(name, node);
    return node;
}

QStringList WatchedHost::getIOByType(const QString& type)
{
    return answer([&] { return sim::SimHost::getIOByType(type); });
}

QHash<QString, QStringList> WatchedHost::getRegisterHash()
{
    return answer([&] { return sim::SimHost::getRegisterHash(); });
}

QJsonValue WatchedHost::getRegisterValue()
{
    spin();
    QJsonValue registers = sim::SimHost::getRegisterValue();
    m_referee.registersAnswered(registers);
    return registers;
}

QStringList WatchedHost::getPointNameList()
{
    return answer([&] { return sim::SimHost::getPointNameList(); });
}

QStringList WatchedHost::getToolList()
{
    return answer([&] { return sim::SimHost::getToolList(); });
}

QStringList WatchedHost::getWobjList()
{
    return answer([&] { return sim::SimHost::getWobjList(); });
}

QStringList WatchedHost::getSpeedList()
{
    return answer([&] { return sim::SimHost::getSpeedList(); });
}

QStringList WatchedHost::getZoneList()
{
    return answer([&] { return sim::SimHost::getZoneList(); });
}

QString WatchedHost::getCurTool()
{
    return answer([&] { return sim::SimHost::getCurTool(); });
}

QString WatchedHost::getCurWobj()
{
    return answer([&] { return sim::SimHost::getCurWobj(); });
}

void WatchedHost::addCurrentPoint(const QString& name, bool overwrite, const QString& tool, const QString& wobj)
{
    m_logbook->note(QStringLiteral("    stores point %1").arg(name));
    m_referee.pointLeaves(name, overwrite);
    answer([&] { sim::SimHost::addCurrentPoint(name, overwrite, tool, wobj); });
}

void WatchedHost::throwLog(const QString& source, pendix::enThrowLogLevel level, const QString& text)
{
    m_logbook->note(QStringLiteral("    told: %1: %2").arg(sim::messageLevelName(level), text));
    m_referee.told(source, level, text);
    answer([&] { sim::SimHost::throwLog(source, level, text); });
}

void WatchedHost::createPhyButtonList(const QString& plugin, const QString& name,
                                      const QList<pendix::PhysicalButton>& first,
                                      const QList<pendix::PhysicalButton>& second, const QStringList& selector)
{
    sim::SimHost::createPhyButtonList(plugin, name, watched(first), watched(second), selector);
}

QList<pendix::PhysicalButton> WatchedHost::watched(QList<pendix::PhysicalButton> buttons)
{
    for (pendix::PhysicalButton& button : buttons) {
        button.handler = [this, key = m_referee.addKey(), handler = button.handler](bool pressed) {
            m_referee.keyTold(key, pressed);
            handler(pressed);
            m_referee.keyDone();
        };
    }
    return buttons;
}

bool WatchedHost::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show) {
        m_referee.shown(watched);
    }
    if (event->type() == QEvent::MouseButtonRelease || event->type() == QEvent::KeyRelease) {
        m_referee.inputComes();
    }
    return sim::SimHost::eventFilter(watched, event);
}
