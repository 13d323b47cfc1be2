#ifndef COMMON_COMMANDRESULT_H
#define COMMON_COMMANDRESULT_H

#include <QJsonArray>
#include <QJsonValue>
#include <QString>

#include <optional>

/// Readers of the result array that a command returns: objects {"Corvane": {command: {"return": code}}},
/// in which code 0 means success. They never throw; what is missing or malformed is skipped.

/// The "return" value of the first element that answers the command, or nothing when no element does.
std::optional<QJsonValue> findReturn(const QJsonArray& result, const QString& command);

/// A "return" value by its JSON type: numbers are truncated toward zero, texts read as decimal integers, true
/// is 1; anything missing or unreadable is 0.
int returnCode(const QJsonValue& value);

/// Return code of "set_virtual_welding", looked for in the first element only.
int extractReturnInt(const QJsonArray& result);

/// Outcome of "set_weld_enable": true only when the first element holds the boolean true.
bool parseJsonBool(const QJsonArray& result);

/// What came of a command that answers with a code.
struct Outcome {
    enum class Kind {
        Done,    ///< code 0
        Refused, ///< any other code
        Silent   ///< nobody answered this command
    };
    Kind kind;
    int code = 0; ///< of a refusal
};

/// The outcome of a command, the first answer to it deciding; a code that is no whole number counts as 0.
Outcome outcomeOf(const QJsonArray& result, const QString& command);

/// What is said of an outcome. The operator's texts come translated, in the context of the class that asked.
struct OutcomeTexts {
    QString done;   ///< to the operator
    QString failed; ///< to the operator: refused
    QString log;    ///< first item of the log line, with its trailing blank
};

/// Tells the operator that a command was done or refused, and writes an error line when it was refused or when nobody
/// answered; silence tells the operator nothing.
void reportOutcome(const Outcome& outcome, const OutcomeTexts& texts, const QString& command);

#endif
