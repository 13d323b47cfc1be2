#include "simulator/namecheck.h"

#include <QCoreApplication>

#include <algorithm>

namespace sim
{

namespace
{

QString words(const char* text)
{
    return QCoreApplication::translate("sim::NameCheck", text);
}

} // namespace

bool isName(const QString& text)
{
    const auto isControl = [](QChar c) { return c.category() == QChar::Other_Control; };
    return !text.isEmpty() && text.trimmed() == text && text.isValidUtf16() &&
           std::none_of(text.cbegin(), text.cend(), isControl);
}

void NameCheck::fail(const JsonPath& path, const QString& text)
{
    if (!m_fault) {
        m_fault = SchemaFault{path, text};
    }
}

QString NameCheck::name(const QJsonValue& value, const JsonPath& path)
{
    QString name = value.toString();
    if (!isName(name)) {
        fail(path, words("expected a name (not empty, no blanks around it, no control characters)"));
    }
    return name;
}

QString NameCheck::choice(const QJsonValue& value, const JsonPath& path, const QStringList& names, const char* list)
{
    QString name = value.toString();
    if (!names.contains(name)) {
        fail(path, words("\"%1\" is not in the list \"%2\"").arg(name, QLatin1String(list)));
    }
    return name;
}

void NameCheck::another(const QString& name, const JsonPath& path, QSet<QString>* list)
{
    if (list->contains(name)) {
        fail(path, words("the name \"%1\" comes twice").arg(name));
    }
    list->insert(name);
    if (list->size() > kMostNames) {
        fail(path, words("the list has more than %1 names").arg(kMostNames));
    }
}

} // namespace sim
