#include "checks/support/iosignals.h"

#include "common/registerfilter.h"
#include "simulator/schemavalidator.h"

#include <QJsonArray>
#include <QRegularExpression>

namespace
{

/// "Power: kind of its port, 0 AO, 1 GO, 2 register" names AO and GO.
QStringList ioTypesIn(const QString& description)
{
    static const QRegularExpression type(QStringLiteral("\\d ([ADG][IO])\\b"));
    QStringList types;
    for (auto match = type.globalMatch(description); match.hasNext();) {
        types.append(match.next().captured(1));
    }
    return types;
}

/// The schema lists the members in the order in which a mapping is written: a signal's type comes first.
QVector<IoSignal> readSignals()
{
    const QJsonObject& schema = sim::SchemaValidator::of(QStringLiteral("set_weld_io_config")).schema();
    const QJsonObject members = schema.value(QLatin1String("properties")).toObject();
    const QString type = QStringLiteral("_type");
    QVector<IoSignal> found;
    for (const QJsonValue name : schema.value(QLatin1String("required")).toArray()) {
        const QString key = name.toString();
        const QJsonObject member = members.value(key).toObject();
        if (key.endsWith(type)) {
            found.append(
                {key.chopped(type.size()), {}, ioTypesIn(member.value(QLatin1String("description")).toString())});
            if (found.last().ioTypes.isEmpty()) {
                qFatal("the schema does not say what %s can be", qPrintable(key));
            }
        } else if (member.value(QLatin1String("type")) == QLatin1String("boolean") && !found.isEmpty()) {
            found.last().switchKey = key;
        }
    }
    if (found.isEmpty()) {
        qFatal("the schema of the mapping has no signals");
    }
    return found;
}

} // namespace

QStringList IoSignal::registers(const QJsonValue& metadata) const
{
    using namespace registerfilter;
    const QChar kind = ioTypes.first().front();
    const QStringList& types = kind == QLatin1Char('D')   ? boolTypes()
                               : kind == QLatin1Char('G') ? integerTypes()
                                                          : numericTypes();
    return filter(metadata, types, QLatin1String(isOutput() ? kWritable : kReadable));
}

const QVector<IoSignal>& ioSignals()
{
    static const QVector<IoSignal> all = readSignals();
    return all;
}
