#include "rl/instructiontext.h"

#include "common/logline.h"
#include "rl/callscanner.h"

namespace corvane::util
{

bool extractFunctionAndParameters(const QString& input, QString& functionName, QStringList& parameters)
{
    const std::optional<CallText> call = scanCall(input);
    if (!call) {
        logLine(LogLevel::Error) << "Parsing failed: Input string does not match function call format. input:" << input;
        functionName.clear();
        parameters.clear();
        return false;
    }
    const bool isEmpty = call->arguments.isEmpty();
    parameters = splitArguments(call->arguments);
    // Last, as the input may be this very variable.
    functionName = call->name.toString();
    if (isEmpty) {
        logLine(LogLevel::Error) << "Extracted Parameter List: (Empty)";
    } else {
        logLine(LogLevel::Debug) << "functionName:" << functionName << ",parameterList:" << parameters;
    }
    return true;
}

QString removePrefixAndSuffix(const QString& text, const QString& prefix, const QString& suffix)
{
    const int ends = prefix.size() + suffix.size();
    if (ends > text.size() || !text.startsWith(prefix) || !text.endsWith(suffix)) {
        return text;
    }
    return text.mid(prefix.size(), text.size() - ends);
}

} // namespace corvane::util

QString unwrapQuotes(const QString& text)
{
    const QString quote = QStringLiteral("\"");
    return corvane::util::removePrefixAndSuffix(text, quote, quote);
}
