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

/// What is said of a command's outcome. The operator's texts come translated.
struct OutcomeTexts {
    QString done;   ///< to the operator: code 0
    QString failed; ///< to the operator: any other code
    QString log;    ///< first item of the log line, with its trailing blank
};

/// Tells the operator the outcome of a command, the first answer to it deciding (a code that is no whole number
/// counts as 0), and writes an error line for a failure or a missing answer; a missing answer tells the operator
/// nothing.
void reportOutcome(const OutcomeTexts& texts, const QJsonArray& result, const QString& command);

/// The save-result check that the pages share. reportOutcome with "Saved successfully" and "Save failed. Please
/// check the parameter configuration.".
/// pageClass is the page's class name: translation context of the messages and prefix of the log lines.
void reportSaveResult(const char* pageClass, const QJsonArray& result, const QString& command);

#endif
