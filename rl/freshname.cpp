#include "rl/freshname.h"

#include <QRegularExpression>
#include <QSet>

QString freshName(const QStringList& names, const QString& prefix, int index)
{
    if (index < 1) {
        return QStringLiteral("");
    }
    const QRegularExpression numbered(QStringLiteral("^%1(\\d+)$").arg(prefix));
    QSet<int> taken;
    if (numbered.isValid()) {
        for (const QString& name : names) {
            const QRegularExpressionMatch match = numbered.match(name);
            if (match.hasMatch()) {
                // A number beyond int is in nobody's way: counting starts at 1.
                taken.insert(match.captured(match.lastCapturedIndex()).toInt());
            }
        }
    }
    int number = 0;
    for (int free = 0; free < index; free += taken.contains(number) ? 0 : 1) {
        ++number;
    }
    return prefix + QString::number(number);
}
