#ifndef CHECKS_MONKEY_VIRTUALTIME_H
#define CHECKS_MONKEY_VIRTUALTIME_H

#include <QAbstractEventDispatcher>

#include <functional>
#include <vector>

/// The application's event dispatcher with a clock of its own, which never waits: it jumps to the next timer.
/// Hours of an operator's pauses take no time, and a run depends on nothing but its seed. To be installed before
/// the application is constructed.
class VirtualTime : public QAbstractEventDispatcher
{
    Q_OBJECT

public:
    VirtualTime();
    ~VirtualTime() override;

    /// The one that was constructed; null if none was.
    static VirtualTime* instance();

    /// Milliseconds since the start.
    qint64 now() const { return m_now; }

    /// Asked when an event loop that waits has nothing left to do at present. True: look again; false: the clock
    /// jumps to the next timer.
    std::function<bool()> whenIdle;

    /// Delivers what is due now, until there is nothing left.
    void rest();
    /// Lets time pass, with everything that falls due in it.
    void pass(int ms);
    /// Time passes while the thread sleeps: what falls due comes afterwards.
    void sleep(qint64 ms) { m_now += ms; }

    bool processEvents(QEventLoop::ProcessEventsFlags flags) override;
    bool hasPendingEvents() override { return m_woken; }
    void registerSocketNotifier(QSocketNotifier* notifier) override;
    void unregisterSocketNotifier(QSocketNotifier* notifier) override;
    void registerTimer(int timerId, int interval, Qt::TimerType timerType, QObject* object) override;
    bool unregisterTimer(int timerId) override;
    bool unregisterTimers(QObject* object) override;
    QList<TimerInfo> registeredTimers(QObject* object) const override;
    int remainingTime(int timerId) override;
    void wakeUp() override { m_woken = true; }
    void interrupt() override { m_interrupted = true; }
    void flush() override {}

private:
    struct Timer {
        int id;
        int interval; ///< milliseconds
        Qt::TimerType type;
        QObject* object;
        qint64 due;
        bool underWay; ///< its event is being delivered, perhaps in an outer event loop
    };

    bool deliver(QEventLoop::ProcessEventsFlags flags);
    bool fireDue();
    Timer* find(int timerId);
    const Timer* next() const;

    std::vector<Timer> m_timers; ///< in order of registration
    qint64 m_now = 0;
    bool m_woken = false;
    bool m_interrupted = false;
};

#endif
