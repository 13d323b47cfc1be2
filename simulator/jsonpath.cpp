#include "simulator/jsonpath.h"

#include <QRegularExpression>

namespace sim
{

JsonPath JsonPath::operator/(const QString& member) const
{
    JsonPath path = *this;
    path.m_steps.append(member);
    return path;
}

JsonPath JsonPath::operator/(int position) const
{
    JsonPath path = *this;
    path.m_steps.append(position);
    return path;
}

JsonPath JsonPath::operator/(const JsonPath& below) const
{
    JsonPath path = *this;
    path.m_steps += below.m_steps;
    return path;
}

QString JsonPath::toString() const
{
    static const QRegularExpression plain(QRegularExpression::anchoredPattern(QStringLiteral("\\w+")));
    QString text;
    for (const QVariant& step : m_steps) {
        const QString name = step.toString();
        if (step.type() == QVariant::Int) {
            text += QLatin1Char('[') + name + QLatin1Char(']');
        } else if (plain.match(name).hasMatch()) {
            text += text.isEmpty() ? name : QLatin1Char('.') + name;
        } else {
            text += QLatin1String("[\"") + name + QLatin1String("\"]");
        }
    }
    return text;
}

} // namespace sim
