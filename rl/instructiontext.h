#ifndef RL_INSTRUCTIONTEXT_H
#define RL_INSTRUCTIONTEXT_H

#include <QString>
#include <QStringList>

namespace corvane::util
{

/// Splits a call-shaped text, a program line or a point expression, into the function's name and its arguments.
/// False, with both outputs empty, and an error line in the log, when the text is no call: a trailing "//"
/// comment, or anything else after the closing parenthesis and an optional ";", makes it none.
/// The input may be one of the outputs, or an element of the list.
/// Arguments keep their quotes, which protect nothing: a comma inside a quoted text splits it. Nested calls stay
/// one argument, empty arguments vanish. A call without arguments is one too, and writes an error line.
bool extractFunctionAndParameters(const QString& input, QString& functionName, QStringList& parameters);

/// The text without prefix and suffix (case-sensitive) when it has both, one after the other; else unchanged.
QString removePrefixAndSuffix(const QString& text, const QString& prefix, const QString& suffix);

} // namespace corvane::util

/// The text between double quotes, as it stands in a line.
QString quoted(const QString& text);

/// The text without one pair of surrounding double quotes, else unchanged. Nothing is trimmed.
QString unwrapQuotes(const QString& text);

#endif
