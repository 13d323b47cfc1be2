#include "common/mjson.h"

#include "common/controller.h"
#include "common/naturalorder.h"
#include "common/registerfilter.h"
#include "common/sortedlist.h"

#include <QHash>
#include <QJsonObject>

namespace mJson
{

using registerfilter::boolTypes;
using registerfilter::floatTypes;
using registerfilter::integerTypes;
using registerfilter::numericTypes;

namespace
{

const QString kAnyAccess;
const QString kReadable = QLatin1String(registerfilter::kReadable);
const QString kWritable = QLatin1String(registerfilter::kWritable);

QStringList sortedIo(const char* type)
{
    static QHash<QString, SortedList> lists;
    const QString key = QString::fromLatin1(type);
    const QStringList names = controller::ioNames(key); // first: the host may spin the event loop and lead here again
    return lists[key].of(names);
}

} // namespace

QStringList GetDO()
{
    return sortedIo("DO");
}

QStringList GetDI()
{
    return sortedIo("DI");
}

QStringList GetAO()
{
    return sortedIo("AO");
}

QStringList GetAI()
{
    return sortedIo("AI");
}

QStringList GetGO()
{
    return sortedIo("GO");
}

QStringList GetGI()
{
    return sortedIo("GI");
}

QStringList GetREG()
{
    return naturalSort(controller::registerNames());
}

QStringList GetREGByTypes(const QStringList& types, const QString& rw)
{
    // No types: nothing can match, so the host is not asked.
    if (types.isEmpty()) {
        return {};
    }
    QStringList names = registerfilter::filter(controller::registerMetadata(), types, rw);
    names.removeDuplicates();
    return naturalSort(names);
}

QStringList GetREGByTypes(const QStringList& types)
{
    return GetREGByTypes(types, kAnyAccess);
}

QStringList GetREGBool()
{
    return GetREGByTypes(boolTypes());
}

QStringList GetREGBoolWritable()
{
    return GetREGByTypes(boolTypes(), kWritable);
}

QStringList GetREGBoolReadable()
{
    return GetREGByTypes(boolTypes(), kReadable);
}

QStringList GetREGInteger()
{
    return GetREGByTypes(integerTypes());
}

QStringList GetREGIntegerWritable()
{
    return GetREGByTypes(integerTypes(), kWritable);
}

QStringList GetREGIntegerReadable()
{
    return GetREGByTypes(integerTypes(), kReadable);
}

QStringList GetREGFloat()
{
    return GetREGByTypes(floatTypes());
}

QStringList GetREGFloatWritable()
{
    return GetREGByTypes(floatTypes(), kWritable);
}

QStringList GetREGFloatReadable()
{
    return GetREGByTypes(floatTypes(), kReadable);
}

QStringList GetREGNumeric()
{
    return GetREGByTypes(numericTypes());
}

QStringList GetREGNumericWritable()
{
    return GetREGByTypes(numericTypes(), kWritable);
}

QStringList GetREGNumericReadable()
{
    return GetREGByTypes(numericTypes(), kReadable);
}

int GetRegisterLen(const QString& name, int defaultLen)
{
    if (name.trimmed().isEmpty()) {
        return defaultLen;
    }
    return registerfilter::length(controller::registerMetadata(), name, defaultLen);
}

QStringList naturalSort(const QStringList& list)
{
    return sortedNaturally(list);
}

QJsonValue getSubValue(const QJsonValue& v, const QString& key)
{
    return v.isObject() ? v.toObject().value(key) : QJsonValue(QJsonValue::Null);
}

bool hasSubValue(const QJsonValue& v, const QString& key)
{
    return v.isObject() && v.toObject().contains(key);
}

QJsonArray getSubArray(const QJsonValue& v, const QString& key)
{
    return getSubValue(v, key).toArray();
}

bool hasSubArray(const QJsonValue& v, const QString& key)
{
    return getSubValue(v, key).isArray();
}

} // namespace mJson
