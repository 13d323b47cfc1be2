#include "simulator/stylerules.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

namespace sim
{

namespace
{

constexpr char kName[] = "name";

/// A brace would end the rule and make something else of the rest of the sheet.
bool hasBrace(const QString& text)
{
    return text.contains(QLatin1Char('{')) || text.contains(QLatin1Char('}'));
}

} // namespace

StyleRules::StyleRules(const QByteArray& json, const Theme& theme)
{
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError) {
        const int line = json.left(error.offset).count('\n') + 1;
        m_faults.append(tr("line %1 is no JSON: %2").arg(QString::number(line), error.errorString()));
        return;
    }
    if (!document.isArray()) {
        m_faults.append(tr("the file is no list of rules"));
        return;
    }
    const QJsonArray rules = document.array();
    for (int i = 0; i < rules.size(); ++i) {
        addRule(i + 1, rules.at(i), theme);
    }
}

StyleRules StyleRules::ofPlugin(const QString& plugin)
{
    QFile file(QStringLiteral(":/%1/render/sub_page.json").arg(plugin));
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    StyleRules rules(file.readAll(), Theme::own());
    for (QString& fault : rules.m_faults) {
        fault.prepend(file.fileName() + QLatin1String(": "));
    }
    return rules;
}

void StyleRules::addRule(int number, const QJsonValue& rule, const Theme& theme)
{
    const QJsonObject members = rule.toObject();
    const QString selector = members.value(QLatin1String(kName)).toString();
    if (selector.isEmpty() || hasBrace(selector)) {
        m_faults.append(tr("rule %1 has no name that is a selector").arg(number));
        return;
    }
    const QString place = tr("rule %1, %2").arg(QString::number(number), selector);
    QString body;
    // A JSON object gives its members in alphabetical order, in which a shorthand ("border") comes before what it
    // is short for ("border-top").
    for (auto member = members.begin(); member != members.end(); ++member) {
        if (member.key() == QLatin1String(kName)) {
            continue;
        }
        const QString property = tr("%1, %2").arg(place, member.key());
        if (!member.value().isString() || hasBrace(member.key() + member.value().toString())) {
            m_faults.append(tr("%1: not a property's text").arg(property));
            continue;
        }
        const QString value = resolved(property, member.value().toString(), theme);
        if (!value.isEmpty()) {
            body += member.key() + QLatin1Char(':') + value + QLatin1Char(';');
        }
    }
    m_sheet += selector + QLatin1Char('{') + body + QLatin1String("}\n");
}

/// The text with its tokens replaced; empty, and a fault, when the theme does not know one of them.
QString StyleRules::resolved(const QString& place, const QString& text, const Theme& theme)
{
    static const QRegularExpression token(QStringLiteral("\\$(?:\\w*\\$[\\w/]*)?"));
    QString result;
    int copied = 0;
    bool isKnown = true;
    QRegularExpressionMatchIterator matches = token.globalMatch(text);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        const std::optional<QString> value = theme.value(match.captured());
        if (!value) {
            m_faults.append(tr("%1: unknown token %2").arg(place, match.captured()));
            isKnown = false;
        }
        result += text.midRef(copied, match.capturedStart() - copied) + value.value_or(QString());
        copied = match.capturedEnd();
    }
    return isKnown ? result + text.midRef(copied) : QString();
}

} // namespace sim
