#include "checks/fuzz/nodecheck.h"

#include "checks/fuzz/require.h"
#include "simulator/schemavalidator.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

namespace fuzz
{

namespace
{

using sim::JsonPath;
using sim::SchemaFault;
using sim::SchemaValidator;

QString inWords(const QJsonValue& value)
{
    const QByteArray list = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(list.mid(1, list.size() - 2));
}

/// Whether a value or something in it is faulty.
bool isFaulty(const JsonPath& path, const QVector<SchemaFault>& faults)
{
    return std::any_of(faults.begin(), faults.end(), [&path](const SchemaFault& fault) {
        return fault.path.steps().mid(0, path.steps().size()) == path.steps();
    });
}

struct Passage {
    QString node;
    QVector<SchemaFault> faults; ///< of what was loaded
    const SchemaValidator& schema;
};

/// A list is kept as a whole or not at all; what the schema has no rules for is not read.
void requireKeptBelow(const Passage& passage, const JsonPath& path, const QJsonObject& loaded,
                      const QJsonObject& written)
{
    for (auto member = loaded.constBegin(); member != loaded.constEnd(); ++member) {
        const JsonPath place = path / member.key();
        const QJsonValue kept = written.value(member.key());
        if (member.value().isObject() && kept.isObject()) {
            requireKeptBelow(passage, place, member.value().toObject(), kept.toObject());
        } else if (kept != member.value() && passage.schema.rulesAt(place).contains(QLatin1String("type")) &&
                   !isFaulty(place, passage.faults)) {
            fail(QStringLiteral("%1.%2 was %3 and is written as %4")
                     .arg(passage.node, place.toString(), inWords(member.value()), inWords(kept)));
        }
    }
}

QJsonValue highest(const SchemaValidator& schema, const JsonPath& path)
{
    const QJsonObject rules = schema.rulesAt(path);
    const QString type = rules.value(QLatin1String("type")).toString();
    if (type == QLatin1String("object")) {
        QJsonObject object;
        const QJsonObject properties = rules.value(QLatin1String("properties")).toObject();
        for (const QString& key : properties.keys()) {
            object.insert(key, highest(schema, path / key));
        }
        return object;
    }
    if (type == QLatin1String("array")) {
        QJsonArray array;
        const int fewest = rules.value(QLatin1String("minItems")).toInt();
        for (int i = 0; i < rules.value(QLatin1String("maxItems")).toInt(fewest); ++i) {
            array.append(highest(schema, path / i));
        }
        return array;
    }
    const QJsonArray values = rules.value(QLatin1String("enum")).toArray();
    return !values.isEmpty()                  ? values.last()
           : type == QLatin1String("boolean") ? QJsonValue(true)
                                              : rules.value(QLatin1String("maximum"));
}

} // namespace

void requireInRange(const QJsonObject& commands)
{
    for (auto command = commands.constBegin(); command != commands.constEnd(); ++command) {
        if (const auto fault = SchemaValidator::of(command.key()).fault(command.value())) {
            fail(QStringLiteral("%1: %2").arg(command.key(), fault->toString()));
        }
    }
}

void requireKept(const QString& node, const QJsonObject& loaded, const QJsonObject& written)
{
    const SchemaValidator& schema = SchemaValidator::of(node);
    requireKeptBelow({node, schema.faults(loaded), schema}, JsonPath(), loaded, written);
}

QJsonObject highestNode(const QString& node)
{
    return highest(SchemaValidator::of(node), JsonPath()).toObject();
}

} // namespace fuzz
