#ifndef SIMULATOR_ANSWERPLAN_H
#define SIMULATOR_ANSWERPLAN_H

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QList>
#include <QString>

namespace sim
{

/// How the simulated controller answers a command.
enum class AnswerKind {
    Proper,      ///< as it should
    NumberZero,  ///< the number 0
    OtherNumber, ///< the number 7
    TextTwo,     ///< the text "2"
    True,
    False,
    Empty,      ///< an empty array: nothing answers
    OtherFirst, ///< the answer of another command, then the proper one
    TwoAnswers, ///< one that differs, then the proper one
    NoMembers,  ///< an answer that holds nothing, not even a code
    Huge,       ///< numbers too large for anything; a code that is one, where the code is all there is
    Malformed   ///< elements in which nothing can be found
};

/// What the user asked of one command.
struct AnswerPlan {
    AnswerKind kind = AnswerKind::Proper;
    int delayMs = 0; ///< time until the answer comes, in milliseconds
};

/// All kinds in the order in which a person is offered them.
QList<AnswerKind> answerKinds();
QString answerLabel(AnswerKind kind);

/// Whether an answer of this kind comes from a controller that did what it was told. A refusal, silence or
/// nonsense, huge numbers among it, comes from one that did not: nothing is stored.
bool controllerActs(AnswerKind kind);

/// The elements of the result array for one command; properCode is what the command itself returned, details the
/// numbers that it says beside that, none for most commands.
QJsonArray shapeAnswer(AnswerKind kind, const QString& plugin, const QString& command, const QJsonValue& properCode,
                       const QJsonObject& details);

} // namespace sim

#endif
