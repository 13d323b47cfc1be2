#include "simulator/jsoncheck.h"

#include <algorithm>
#include <cmath>

namespace sim
{

void JsonCheck::fail(const JsonPath& path, const QString& text)
{
    if (!m_fault) {
        m_fault = Fault{path, text};
    }
}

QJsonObject JsonCheck::object(const QJsonValue& value, const JsonPath& path)
{
    if (!value.isObject()) {
        fail(path, tr("expected an object"));
    }
    return value.toObject();
}

QJsonArray JsonCheck::array(const QJsonValue& value, const JsonPath& path)
{
    if (!value.isArray()) {
        fail(path, tr("expected a list"));
    }
    return value.toArray();
}

bool JsonCheck::boolean(const QJsonValue& value, const JsonPath& path)
{
    if (!value.isBool()) {
        fail(path, tr("expected true or false"));
    }
    return value.toBool();
}

double JsonCheck::number(const QJsonValue& value, const JsonPath& path)
{
    if (!value.isDouble()) {
        fail(path, tr("expected a number"));
    }
    return value.toDouble();
}

double JsonCheck::number(const QJsonValue& value, const JsonPath& path, double minimum, double maximum)
{
    const double number = value.toDouble();
    if (!value.isDouble() || number < minimum || number > maximum) {
        fail(path, tr("expected a number from %1 to %2").arg(QString::number(minimum), QString::number(maximum)));
    }
    return number;
}

int JsonCheck::whole(const QJsonValue& value, const JsonPath& path, int minimum, int maximum)
{
    const double number = value.toDouble(std::nan(""));
    // The comparison fails for what is no number at all, too.
    if (!(number >= minimum && number <= maximum && std::floor(number) == number)) {
        fail(path, tr("expected a whole number from %1 to %2").arg(QString::number(minimum), QString::number(maximum)));
        return minimum;
    }
    return static_cast<int>(number);
}

QString JsonCheck::text(const QJsonValue& value, const JsonPath& path)
{
    if (!value.isString()) {
        fail(path, tr("expected a text"));
    }
    return value.toString();
}

QString JsonCheck::name(const QJsonValue& value, const JsonPath& path)
{
    QString name = value.toString();
    if (!isName(name)) {
        fail(path, tr("expected a name (not empty, no blanks around it, no control characters)"));
    }
    return name;
}

void JsonCheck::another(const QString& name, const JsonPath& path, QSet<QString>* list)
{
    if (list->contains(name)) {
        fail(path, tr("the name \"%1\" comes twice").arg(name));
    }
    list->insert(name);
    if (list->size() > kMostNames) {
        fail(path, tr("the list has more than %1 names").arg(kMostNames));
    }
}

QString JsonCheck::word(const QJsonValue& value, const JsonPath& path, const QStringList& words)
{
    QString word = value.toString();
    if (!words.contains(word.trimmed().toLower())) {
        fail(path, tr("expected one of %1").arg(words.join(QLatin1String(", "))));
    }
    return word;
}

void JsonCheck::members(const QJsonObject& object, const JsonPath& path, const QStringList& required,
                        const QStringList& optional)
{
    // The unknown ones first: of a misspelt member, which is also a missing one, this is what can be pointed at.
    for (auto member = object.constBegin(); member != object.constEnd(); ++member) {
        if (!required.contains(member.key()) && !optional.contains(member.key())) {
            fail(path / member.key(), tr("unknown member"));
        }
    }
    for (const QString& key : required) {
        if (!object.contains(key)) {
            fail(path / key, tr("missing"));
        }
    }
}

bool JsonCheck::isName(const QString& text)
{
    const auto isControl = [](QChar c) { return c.category() == QChar::Other_Control; };
    return !text.isEmpty() && text.trimmed() == text && text.isValidUtf16() &&
           std::none_of(text.cbegin(), text.cend(), isControl);
}

} // namespace sim
