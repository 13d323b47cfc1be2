#include "simulator/program/instructionline.h"

#include <QCoreApplication>

namespace sim
{

namespace
{

int commentStart(const QString& line)
{
    bool quoted = false;
    for (int i = 0; i < line.size(); ++i) {
        if (line.at(i) == QLatin1Char('"')) {
            quoted = !quoted;
        } else if (!quoted && line.midRef(i, 2) == QLatin1String("//")) {
            return i;
        }
    }
    return line.size();
}

bool isLineBreak(QChar c)
{
    return c == QChar::LineFeed || c == QChar::CarriageReturn || c == QChar::LineSeparator ||
           c == QChar::ParagraphSeparator;
}

} // namespace

InstructionLine splitLine(const QString& line)
{
    const int start = commentStart(line);
    int end = start;
    // White space at the end of a line without comment stays with the code.
    while (start < line.size() && end > 0 && line.at(end - 1).isSpace()) {
        --end;
    }
    return {line.left(end), line.mid(end)};
}

QString instructionName(const QString& line)
{
    const QString code = splitLine(line).code;
    return code.left(code.indexOf(QLatin1Char('('))).trimmed();
}

QString lineFault(const QString& line)
{
    if (line.size() > kLongestLine) {
        return QCoreApplication::translate("sim::InstructionLine", "has more than %1 characters").arg(kLongestLine);
    }
    for (const QChar c : line) {
        if (isLineBreak(c)) {
            return QCoreApplication::translate("sim::InstructionLine", "has a line break inside");
        }
        if (c.category() == QChar::Other_Control && c != QChar::Tabulation) {
            return QCoreApplication::translate("sim::InstructionLine", "has a control character (code %1)")
                .arg(c.unicode());
        }
    }
    if (!line.isValidUtf16()) {
        return QCoreApplication::translate("sim::InstructionLine", "has half a surrogate pair");
    }
    return {};
}

} // namespace sim
