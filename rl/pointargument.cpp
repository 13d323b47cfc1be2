#include "rl/pointargument.h"

#include "rl/callscanner.h"

#include <algorithm>

namespace
{

/// Line breaks, those of other scripts included, and all that has no place in a line.
bool isControl(QChar c)
{
    return c.category() == QChar::Other_Control || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
}

} // namespace

bool isPointArgument(const QString& text)
{
    for (const char* reserved : {"\"", ";", "//"}) {
        if (text.contains(QLatin1String(reserved))) {
            return false;
        }
    }
    // The reader takes a closing parenthesis too many for an ordinary character; on a controller it ends the call.
    if (text.count(QLatin1Char('(')) != text.count(QLatin1Char(')')) ||
        std::any_of(text.begin(), text.end(), isControl)) {
        return false;
    }
    const QString next = QStringLiteral("next");
    const QString line = QStringLiteral("f(%1,%2)").arg(text, next);
    const std::optional<CallText> call = scanCall(line);
    return call && splitArguments(call->arguments) == QStringList{text, next};
}

bool isPointName(const QString& text)
{
    return isPointArgument(text) && !text.contains(QLatin1Char('('));
}
