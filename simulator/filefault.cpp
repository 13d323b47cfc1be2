#include "simulator/filefault.h"

namespace sim
{

namespace
{

QString escaped(const QString& text)
{
    QString result;
    for (const QChar c : text) {
        if (c.category() == QChar::Other_Control) {
            result += QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
        } else {
            result += c;
        }
    }
    return result;
}

} // namespace

QString FileFault::message() const
{
    QString place = file;
    if (line > 0) {
        place += QLatin1Char(':') + QString::number(line);
    }
    place += QLatin1String(": ");
    return escaped(member.isEmpty() ? place + text : place + member + QLatin1String(": ") + text);
}

} // namespace sim
