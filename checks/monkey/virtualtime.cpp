#include "checks/monkey/virtualtime.h"

#include <QCoreApplication>
#include <QTimerEvent>
#include <qpa/qwindowsysteminterface.h>

#include <algorithm>
#include <ctime>
#include <utility>

namespace
{

/// More rounds without rest are an endless chain of events.
constexpr int kMostRounds = 10000;

VirtualTime* theInstance = nullptr;

} // namespace

/// Takes the place of the system's function: whoever sleeps in this program sleeps in its own time.
extern "C" int nanosleep(const timespec* requested, timespec* remaining)
{
    if (theInstance != nullptr) {
        theInstance->sleep(requested->tv_sec * 1000 + requested->tv_nsec / 1000000);
    }
    if (remaining != nullptr) {
        *remaining = {};
    }
    return 0;
}

VirtualTime::VirtualTime()
{
    theInstance = this;
}

VirtualTime::~VirtualTime()
{
    theInstance = nullptr;
}

VirtualTime* VirtualTime::instance()
{
    return theInstance;
}

bool VirtualTime::deliver(QEventLoop::ProcessEventsFlags flags)
{
    // Posting an event wakes the dispatcher. The number of posted events would tell less: objects that wait for
    // an outer event loop to destroy them count among them.
    bool did = std::exchange(m_woken, false);
    QCoreApplication::sendPostedEvents();
    did = QWindowSystemInterface::sendWindowSystemEvents(flags) || did;
    return (!m_interrupted && fireDue()) || did;
}

bool VirtualTime::processEvents(QEventLoop::ProcessEventsFlags flags)
{
    m_interrupted = false;
    emit awake();
    if (deliver(flags)) {
        return true;
    }
    if (!flags.testFlag(QEventLoop::WaitForMoreEvents) || m_interrupted) {
        return false;
    }
    emit aboutToBlock();
    if (whenIdle && whenIdle()) {
        return true;
    }
    const Timer* timer = next();
    if (timer == nullptr) {
        qFatal("an event loop waits for something that never comes");
    }
    m_now = std::max(m_now, timer->due);
    return fireDue();
}

void VirtualTime::rest()
{
    int rounds = 0;
    while (processEvents(QEventLoop::AllEvents)) {
        if (++rounds > kMostRounds) {
            qFatal("the application never comes to rest");
        }
    }
}

void VirtualTime::pass(int ms)
{
    const qint64 end = m_now + ms;
    rest();
    for (const Timer* timer = next(); timer != nullptr && timer->due <= end; timer = next()) {
        m_now = std::max(m_now, timer->due);
        rest();
    }
    m_now = std::max(m_now, end);
}

bool VirtualTime::fireDue()
{
    std::vector<std::pair<qint64, int>> due;
    for (const Timer& timer : m_timers) {
        if (timer.due <= m_now && !timer.underWay) {
            due.emplace_back(timer.due, timer.id);
        }
    }
    std::stable_sort(due.begin(), due.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    bool fired = false;
    for (const auto& [time, id] : due) {
        // An earlier one may have stopped or restarted it.
        Timer* timer = find(id);
        if (timer == nullptr || timer->due != time || timer->underWay) {
            continue;
        }
        timer->due = std::max(time + timer->interval, m_now);
        timer->underWay = true;
        QTimerEvent event(id);
        QCoreApplication::sendEvent(timer->object, &event);
        if (Timer* still = find(id)) {
            still->underWay = false;
        }
        fired = true;
    }
    return fired;
}

VirtualTime::Timer* VirtualTime::find(int timerId)
{
    const auto found =
        std::find_if(m_timers.begin(), m_timers.end(), [=](const Timer& timer) { return timer.id == timerId; });
    return found != m_timers.end() ? &*found : nullptr;
}

const VirtualTime::Timer* VirtualTime::next() const
{
    const Timer* earliest = nullptr;
    for (const Timer& timer : m_timers) {
        if (!timer.underWay && (earliest == nullptr || timer.due < earliest->due)) {
            earliest = &timer;
        }
    }
    return earliest;
}

void VirtualTime::registerTimer(int timerId, int interval, Qt::TimerType timerType, QObject* object)
{
    m_timers.push_back({timerId, interval, timerType, object, m_now + interval, false});
}

bool VirtualTime::unregisterTimer(int timerId)
{
    const auto end =
        std::remove_if(m_timers.begin(), m_timers.end(), [=](const Timer& timer) { return timer.id == timerId; });
    const bool found = end != m_timers.end();
    m_timers.erase(end, m_timers.end());
    return found;
}

bool VirtualTime::unregisterTimers(QObject* object)
{
    const auto end =
        std::remove_if(m_timers.begin(), m_timers.end(), [=](const Timer& timer) { return timer.object == object; });
    const bool found = end != m_timers.end();
    m_timers.erase(end, m_timers.end());
    return found;
}

QList<QAbstractEventDispatcher::TimerInfo> VirtualTime::registeredTimers(QObject* object) const
{
    QList<TimerInfo> infos;
    for (const Timer& timer : m_timers) {
        if (timer.object == object) {
            infos.append(TimerInfo(timer.id, timer.interval, timer.type));
        }
    }
    return infos;
}

int VirtualTime::remainingTime(int timerId)
{
    const Timer* timer = find(timerId);
    return timer != nullptr ? static_cast<int>(std::max<qint64>(0, timer->due - m_now)) : -1;
}

// Nothing in this program comes through a socket.
void VirtualTime::registerSocketNotifier(QSocketNotifier* notifier)
{
    Q_UNUSED(notifier)
}

void VirtualTime::unregisterSocketNotifier(QSocketNotifier* notifier)
{
    Q_UNUSED(notifier)
}
