#include "common/registerfilter.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QVariant>

#include <algorithm>

namespace registerfilter
{

namespace
{

constexpr const char* kTypeKeys[] = {"type", "reg_type", "value_type", "data_type"};
constexpr const char* kAccessKeys[] = {"rw", "access", "perm", "permission", "mode"};
constexpr const char* kNameKeys[] = {"name", "reg_name", "key", "id"};

QString normalised(const QString& word)
{
    return word.trimmed().toLower();
}

/// Numbers and booleans count as their text, so that a controller may number its registers.
QString asText(const QJsonValue& value)
{
    return value.isString() ? value.toString() : value.toVariant().toString();
}

template <int N>
QString firstFilled(const QJsonObject& object, const char* const (&keys)[N])
{
    for (const char* key : keys) {
        QString text = asText(object.value(QLatin1String(key))).trimmed();
        if (!text.isEmpty()) {
            return text;
        }
    }
    return {};
}

bool isOneOf(const QString& word, std::initializer_list<const char*> words)
{
    return std::any_of(words.begin(), words.end(), [&word](const char* w) { return word == QLatin1String(w); });
}

enum class Access { Any, Readable, Writable };

Access accessOf(const QString& rw)
{
    const QString word = normalised(rw);
    if (isOneOf(word, {"r", "read", "rd", "ro"})) {
        return Access::Readable;
    }
    return isOneOf(word, {"w", "write", "wr", "wo"}) ? Access::Writable : Access::Any;
}

/// A register that can be read and written counts as writable only.
bool passes(Access wanted, const QString& access)
{
    switch (wanted) {
    case Access::Readable:
        return isOneOf(normalised(access), {"rd", "read", "ro", "r", "readonly"});
    case Access::Writable:
        return isOneOf(normalised(access), {"wr", "write", "w", "wo", "wt", "rdwr", "rw"});
    case Access::Any:
        break;
    }
    return true;
}

/// Queries as the pass over the registers needs them.
struct Wanted {
    QHash<QString, QVector<int>> queriesOf; ///< by normalised type name
    QVector<Access> access;                 ///< of each query
};

Wanted wantedBy(const QVector<Query>& queries)
{
    Wanted wanted;
    for (int i = 0; i < queries.size(); ++i) {
        wanted.access.append(accessOf(queries.at(i).rw));
        for (const QString& type : queries.at(i).types) {
            QVector<int>& ofType = wanted.queriesOf[normalised(type)];
            if (!ofType.contains(i)) {
                ofType.append(i);
            }
        }
    }
    return wanted;
}

} // namespace

const QStringList& boolTypes()
{
    static const QStringList types = {QStringLiteral("bool"), QStringLiteral("bit")};
    return types;
}

const QStringList& integerTypes()
{
    static const QStringList types = {QStringLiteral("int8"),   QStringLiteral("uint8"),  QStringLiteral("byte"),
                                      QStringLiteral("int16"),  QStringLiteral("uint16"), QStringLiteral("word"),
                                      QStringLiteral("short"),  QStringLiteral("int32"),  QStringLiteral("uint32"),
                                      QStringLiteral("dword"),  QStringLiteral("int"),    QStringLiteral("int64"),
                                      QStringLiteral("uint64"), QStringLiteral("long")};
    return types;
}

const QStringList& floatTypes()
{
    static const QStringList types = {QStringLiteral("float"), QStringLiteral("double")};
    return types;
}

const QStringList& numericTypes()
{
    static const QStringList types = integerTypes() + floatTypes();
    return types;
}

QStringList filter(const QJsonValue& metadata, const QStringList& types, const QString& rw)
{
    return filter(metadata, QVector<Query>{{types, rw}}).first();
}

QVector<QStringList> filter(const QJsonValue& metadata, const QVector<Query>& queries)
{
    QVector<QStringList> found(queries.size());
    const Wanted wanted = wantedBy(queries);
    if (wanted.queriesOf.isEmpty()) {
        return found;
    }
    if (!metadata.isArray()) {
        qWarning("[corvane][JsonCommon] getRegisterValue is not an array, cannot filter registers by type.");
        return found;
    }
    bool anyComplete = false;
    const QJsonArray registers = metadata.toArray();
    for (const QJsonValue& value : registers) {
        if (!value.isObject()) {
            continue;
        }
        const QJsonObject object = value.toObject();
        const QString type = firstFilled(object, kTypeKeys);
        const QVector<int> wanting = wanted.queriesOf.value(normalised(type));
        if (anyComplete && wanting.isEmpty()) {
            continue;
        }
        const QString access = firstFilled(object, kAccessKeys);
        const QString name = firstFilled(object, kNameKeys);
        anyComplete = anyComplete || !(type.isEmpty() || access.isEmpty() || name.isEmpty());
        for (const int query : wanting) {
            if (!name.isEmpty() && passes(wanted.access.at(query), access)) {
                found[query].append(name);
            }
        }
    }
    if (!anyComplete) {
        qWarning("[corvane][JsonCommon] register metadata missing name/type/rw "
                 "(type/reg_type/value_type/data_type + rw/access/perm/permission/mode), "
                 "cannot filter by type and read/write.");
    }
    return found;
}

int length(const QJsonValue& metadata, const QString& name, int defaultLen)
{
    const QString wanted = name.trimmed();
    if (wanted.isEmpty() || !metadata.isArray()) {
        return defaultLen;
    }
    const QJsonArray registers = metadata.toArray();
    for (const QJsonValue& value : registers) {
        const QJsonObject object = value.toObject();
        if (value.isObject() && asText(object.value(QLatin1String("name"))) == wanted) {
            return std::max(1, object.value(QLatin1String("len")).toInt(defaultLen));
        }
    }
    return defaultLen;
}

QHash<QString, int> lengths(const QJsonValue& metadata)
{
    QHash<QString, int> table;
    const QJsonArray registers = metadata.toArray();
    for (const QJsonValue& value : registers) {
        const QJsonObject object = value.toObject();
        const QString name = asText(object.value(QLatin1String("name"))).trimmed();
        if (!name.isEmpty() && !table.contains(name)) {
            table.insert(name, std::max(1, object.value(QLatin1String("len")).toInt(1)));
        }
    }
    return table;
}

} // namespace registerfilter
