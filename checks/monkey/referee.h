#ifndef CHECKS_MONKEY_REFEREE_H
#define CHECKS_MONKEY_REFEREE_H

#include "checks/monkey/logbook.h"
#include "checks/monkey/sourcetexts.h"

#include <QJsonValue>
#include <QMap>
#include <QSet>
#include <QVector>

#include <optional>
#include <vector>

/// Judges what the plug-ins do by what the host was asked and told. Complains to the logbook.
///
/// - A command may leave only when the last question to the host was that for the operator's level and the answer a
///   level that may change things: any other host call may have spun the event loop, in which somebody logged out.
///   Before "set_weld_enable" the question for the robot's power, answered "off", comes directly before that one.
/// - The settings that leave obey the rule between their times. Those that follow an enabling command are what the form
///   held, and was judged by, when that command left.
/// - An I/O mapping that leaves breaks no rule by the registers that were told last in the same action, and none leaves
///   while welding is enabled.
/// - A command follows its schema. The nodes of a curve are as many as their number says, and both values rise.
/// - A line is computed without a press only when its page was shown or has just read the nodes. What is computed or
/// saved
///   at a press is a curve whose output is in use, once, while welding is off. A save follows a computation of the same
///   nodes.
/// - The wire is started only with a finger on the key. When the finger has gone, the stop follows, unless the operator
///   was refused it for want of a level and told so.
/// - A page sends no command while one of its own is under way.
/// - A stored point has a name, replaces none, and the level that was told last in the same action allows it.
/// - The operator is told only texts of the plug-in's own translation file, and each at one level.
class Referee
{
public:
    explicit Referee(Logbook* logbook);
    /// The day's end: no wire may be left running.
    ~Referee();
    Q_DISABLE_COPY(Referee)

    /// Actions of the operator nest where event loops do; what is asked in one says nothing about the others.
    void beginAction();
    void endAction() { m_actions.pop_back(); }
    int depth() const { return static_cast<int>(m_actions.size()) - 1; }

    /// A page that is busy in one of the actions around this one catches up with it there.
    void shown(const QObject* widget);
    /// A finger or key is about to be lifted from a widget, at which buttons act.
    void inputComes() { m_actions.back().sentAtPress.clear(); }
    void levelAnswered(int level);
    void powerAnswered(bool powered) { m_actions.back().asked = {!powered, {}, {}}; }
    void nodeAnswered(const QString& name, const QJsonValue& node);
    void registersAnswered(const QJsonValue& registers);
    /// Any other call that may have spun the event loop.
    void otherCall() { m_actions.back().asked = {}; }

    void commandLeaves(const QObject* sender, const QString& name, const QJsonValue& argument);
    /// Around a command on the line.
    void beginWaiting(const QObject* sender);
    void endWaiting() { m_waiting.removeLast(); }
    void pointLeaves(const QString& name, bool overwrite);
    void told(const QString& source, int level, const QString& text);

    /// A key beside the screen; the number is for keyTold. Its handler is called between keyTold and keyDone.
    int addKey();
    void keyTold(int key, bool down);
    void keyDone();

private:
    /// The last questions to the host, one directly behind the other.
    struct Asked {
        bool unpowered = false;   ///< power, answered "off"
        std::optional<int> level; ///< then, or alone, the level
        QString node;             ///< or, alone, a node
    };
    struct ActionState {
        Asked asked;
        std::optional<int> toldLevel; ///< whatever was asked since
        QJsonValue toldRegisters = QJsonValue(QJsonValue::Undefined);
        QSet<const QObject*> shown;
        QJsonValue computed;            ///< what the last command had computed; undefined for another one
        QStringList sentAtPress;        ///< what a curve's page sent since the last press
        QMap<QString, int> enabledWith; ///< what the page's fields held when the enabling command left
    };

    bool mayLeaveByItself(const QObject* sender, const QString& name, const QJsonValue& argument) const;
    void judgeLevel(const QString& what, std::optional<int> level);
    void judgeSettings(const QJsonObject& settings);
    void judgeMapping(const QObject* sender, const QJsonObject& mapping);
    void judgeCurve(const QObject* sender, const QString& name, const QJsonObject& curve);
    void judgePress(const QObject* sender, const QString& name, const QJsonObject& curve);
    void judgeWire(const QString& name, bool start);

    Logbook* m_logbook;
    std::vector<ActionState> m_actions; ///< the first one is what happens outside of any action
    QVector<const QObject*> m_waiting;  ///< the pages whose command is under way
    QVector<bool> m_fingers;            ///< by key: whether it is down
    QVector<int> m_calledKeys;          ///< whose handlers are under way, the innermost last
    QMap<QString, int> m_running;       ///< the wire by its command, and the key that started it
    QVector<QJsonValue> m_toldMappings; ///< the I/O mapping as it was answered, the latest last
    int m_oldMappings = 0; ///< so many of them are void when the action is over: the curves have newer ones
    SourceTexts m_texts;
    QMap<QString, int> m_levelOfText;
};

#endif
