#include "rl/callscanner.h"

namespace
{

bool isAsciiSpace(QChar c)
{
    return c == QLatin1Char(' ') || (c >= QLatin1Char('\t') && c <= QLatin1Char('\r'));
}

bool isAsciiWord(QChar c)
{
    const ushort code = c.unicode();
    const ushort lower = code | 0x20U;
    return (lower >= 'a' && lower <= 'z') || (code >= '0' && code <= '9') || code == '_';
}

int skipSpace(const QString& text, int place)
{
    while (place < text.size() && isAsciiSpace(text.at(place))) {
        ++place;
    }
    return place;
}

} // namespace

std::optional<CallText> scanCall(const QString& text)
{
    const int nameBegin = skipSpace(text, 0);
    int nameEnd = nameBegin;
    while (nameEnd < text.size() && isAsciiWord(text.at(nameEnd))) {
        ++nameEnd;
    }
    const int open = skipSpace(text, nameEnd);
    if (nameEnd == nameBegin || open == text.size() || text.at(open) != QLatin1Char('(')) {
        return std::nullopt;
    }
    // From the end: only white space and one semicolon may follow the closing parenthesis.
    int last = text.size() - 1;
    while (last > open && isAsciiSpace(text.at(last))) {
        --last;
    }
    if (last > open && text.at(last) == QLatin1Char(';')) {
        --last;
    }
    if (last <= open || text.at(last) != QLatin1Char(')')) {
        return std::nullopt;
    }
    const QStringRef arguments = text.midRef(open + 1, last - open - 1);
    if (arguments.contains(QLatin1Char('\n')) || !QStringView(arguments).isValidUtf16()) {
        return std::nullopt;
    }
    return CallText{text.midRef(nameBegin, nameEnd - nameBegin), arguments.trimmed()};
}

QStringList splitArguments(const QStringRef& arguments)
{
    QStringList pieces;
    const auto append = [&](int begin, int end) {
        const QStringRef piece = arguments.mid(begin, end - begin).trimmed();
        if (!piece.isEmpty()) {
            pieces.append(piece.toString());
        }
    };
    int depth = 0;
    int begin = 0;
    for (int place = 0; place < arguments.size(); ++place) {
        const QChar c = arguments.at(place);
        if (c == QLatin1Char('(')) {
            ++depth;
        } else if (c == QLatin1Char(')')) {
            depth = qMax(0, depth - 1);
        } else if (c == QLatin1Char(',') && depth == 0) {
            append(begin, place);
            begin = place + 1;
        }
    }
    append(begin, arguments.size());
    return pieces;
}
