#ifndef COMMON_BUSINESS_H
#define COMMON_BUSINESS_H

#include <QSharedPointer>

#include <optional>

/// One business with the host at a time, and whether its owner outlives it. A host call (a command, a read, a
/// question, a message; not the font zoom and not a log line) may spin the event loop, in which the operator presses
/// the next button or the host takes the owner away. So a page, an editor or the plug-in object has one member of
/// this class, as its last one (what is destroyed first has not begun to fall apart), takes a turn before it turns to
/// the host, and asks the turn after every host call before it touches anything of its own.
///
///     const auto turn = m_business.begin();
///     if (!turn) {
///         return; // a business is under way
///     }
///     const QJsonArray result = controller::sendCommand(...);
///     if (turn->ownerLives()) {
///         ...
///     }
class Business
{
    struct State {
        bool ownerLives = true;
        bool underWay = false;
    };

public:
    /// Tells, for as long as anybody likes, whether the owner still lives. Takes no turn.
    class Watch
    {
    public:
        bool ownerLives() const { return m_state->ownerLives; }

    private:
        friend class Business;
        explicit Watch(QSharedPointer<State> state) : m_state(std::move(state)) {}

        QSharedPointer<State> m_state;
    };

    /// The right to be the only business, until it is destroyed, also by an exception.
    class Turn
    {
    public:
        Turn(Turn&& other) noexcept = default;
        Turn& operator=(Turn&&) = delete;
        ~Turn()
        {
            if (m_state) {
                m_state->underWay = false;
            }
        }

        bool ownerLives() const { return m_state->ownerLives; }

    private:
        friend class Business;
        explicit Turn(QSharedPointer<State> state) : m_state(std::move(state)) { m_state->underWay = true; }
        Q_DISABLE_COPY(Turn)

        QSharedPointer<State> m_state;
    };

    Business() = default;
    ~Business() { m_state->ownerLives = false; }

    /// A turn, or nothing while another one lives.
    std::optional<Turn> begin() { return isUnderWay() ? std::nullopt : std::optional<Turn>(Turn(m_state)); }
    bool isUnderWay() const { return m_state->underWay; }
    Watch watch() const { return Watch(m_state); }

private:
    Q_DISABLE_COPY(Business)

    // Not std::make_shared: its tag is one symbol for the whole process, and would keep the plug-in from being
    // unloaded.
    QSharedPointer<State> m_state = QSharedPointer<State>::create();
};

#endif
