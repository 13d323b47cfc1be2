#include "rl/instructiontext.h"

#include "common/logline.h"
#include "rl/callscanner.h"

namespace corvane::util
{

bool extractFunctionAndParameters(const QString& input, QString& functionName, QStringList& parameters)
{
    const std::optional<CallText> call = scanCall(input);
    const QString name = call ? call->name.toString() : QString();
    const QStringList arguments = call ? splitArguments(call->arguments) : QStringList();
    if (!call) {
        logLine(LogLevel::Error) << "Parsing failed: Input string does not match function call format. input:" << input;
    } else if (call->arguments.isEmpty()) {
        logLine(LogLevel::Error) << "Extracted Parameter List: (Empty)";
    } else {
        logLine(LogLevel::Debug) << "functionName:" << name << ",parameterList:" << arguments;
    }
    // Last, as the input may be one of the outputs, or an element of the list.
    functionName = name;
    parameters = arguments;
    return call.has_value();
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

QString quoted(const QString& text)
{
    return QLatin1Char('"') + text + QLatin1Char('"');
}

QString unwrapQuotes(const QString& text)
{
    const QString quote = QStringLiteral("\"");
    return corvane::util::removePrefixAndSuffix(text, quote, quote);
}
