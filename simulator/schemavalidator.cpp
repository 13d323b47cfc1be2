#include "simulator/schemavalidator.h"

#include <QCoreApplication>
#include <QFile>
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QStringList>

#include <valijson/adapters/qtjson_adapter.hpp>
#include <valijson/schema.hpp>
#include <valijson/schema_parser.hpp>
#include <valijson/validation_results.hpp>
#include <valijson/validator.hpp>

#include <limits>

// A macro that must not stand in a namespace; without it the linker drops the resources of a static library.
static void initResources()
{
    Q_INIT_RESOURCE(schemas);
}

namespace sim
{

namespace
{

using Adapter = valijson::adapters::QtJsonAdapter;

QString tr(const char* text)
{
    return QCoreApplication::translate("sim::SchemaValidator", text);
}

QJsonObject resource(const QString& name)
{
    QFile file(QStringLiteral(":/schema/%1.schema.json").arg(name));
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("there is no schema of %s", qPrintable(name));
    }
    return QJsonDocument::fromJson(file.readAll()).object();
}

/// A rule and those that it takes in by reference or under "allOf".
QVector<QJsonObject> unfolded(const QJsonObject& rule, const QJsonObject& root)
{
    const QString reference = rule.value(QLatin1String("$ref")).toString();
    if (!reference.isEmpty()) {
        QJsonValue target = root;
        for (const QString& step : reference.mid(1).split(QLatin1Char('/'), Qt::SkipEmptyParts)) {
            target = target.toObject().value(step);
        }
        return unfolded(target.toObject(), root);
    }
    QVector<QJsonObject> rules = {rule};
    for (const QJsonValue part : rule.value(QLatin1String("allOf")).toArray()) {
        rules += unfolded(part.toObject(), root);
    }
    return rules;
}

/// What a rule says of one member or element of its value; empty for nothing.
QJsonObject ruleBelow(const QJsonObject& rule, const QVariant& step)
{
    if (step.type() != QVariant::Int) {
        return rule.value(QLatin1String("properties")).toObject().value(step.toString()).toObject();
    }
    const QJsonValue items = rule.value(QLatin1String("items"));
    const QJsonArray first = items.toArray();
    const bool isFurther = items.isArray() && step.toInt() >= first.size();
    const QJsonValue further = rule.value(QLatin1String("additionalItems"));
    return (isFurther ? further : items.isArray() ? first.at(step.toInt()) : items).toObject();
}

QString inWords(const QJsonValue& value)
{
    const QByteArray list = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(list.mid(1, list.size() - 2));
}

QString oneOf(const QJsonArray& values)
{
    QStringList words;
    for (const QJsonValue value : values) {
        words.append(inWords(value));
    }
    return words.join(QLatin1String(", "));
}

QString numberWords(const QJsonObject& rules, const QString& kind)
{
    const QJsonValue minimum = rules.value(QLatin1String("minimum"));
    const QJsonValue maximum = rules.value(QLatin1String("maximum"));
    return minimum.isUndefined() ? kind : tr("%1 from %2 to %3").arg(kind, inWords(minimum), inWords(maximum));
}

QString listWords(const QJsonObject& rules)
{
    const int fewest = rules.value(QLatin1String("minItems")).toInt(0);
    const int most = rules.value(QLatin1String("maxItems")).toInt(std::numeric_limits<int>::max());
    if (fewest == most) {
        return tr("a list of %1").arg(fewest);
    }
    if (fewest == 0) {
        return tr("a list");
    }
    return most == std::numeric_limits<int>::max() ? tr("a list of at least %1").arg(fewest)
                                                   : tr("a list of %1 to %2").arg(fewest).arg(most);
}

QString typeWords(const QString& type, const QJsonObject& rules)
{
    if (type == QLatin1String("integer")) {
        return numberWords(rules, tr("a whole number"));
    }
    if (type == QLatin1String("number")) {
        return numberWords(rules, tr("a number"));
    }
    if (type == QLatin1String("array")) {
        return listWords(rules);
    }
    if (type == QLatin1String("string")) {
        return rules.contains(QLatin1String("minLength")) ? tr("a text that is not empty") : tr("a text");
    }
    if (type == QLatin1String("boolean")) {
        return tr("true or false");
    }
    return type == QLatin1String("object") ? tr("an object") : type;
}

/// What a value must be to follow its rules.
QString expectation(const QJsonObject& rules)
{
    const QJsonValue constant = rules.value(QLatin1String("const"));
    if (!constant.isUndefined()) {
        return tr("expected %1").arg(inWords(constant));
    }
    const QJsonArray values = rules.value(QLatin1String("enum")).toArray();
    if (!values.isEmpty()) {
        return tr("expected one of %1").arg(oneOf(values));
    }
    const QJsonValue type = rules.value(QLatin1String("type"));
    QStringList words;
    for (const QJsonValue one : type.isArray() ? type.toArray() : QJsonArray{type}) {
        words.append(typeWords(one.toString(), rules));
    }
    return tr("expected %1").arg(words.join(tr(" or ")));
}

/// The validator names each step to a value in brackets, behind a word for the root; a position in an array looks like
/// a member that is called "3".
JsonPath pathOf(const std::vector<std::string>& context, QJsonValue value)
{
    JsonPath path;
    for (std::size_t i = 1; i < context.size(); ++i) {
        const QString step = QString::fromStdString(context[i].substr(1, context[i].size() - 2));
        if (value.isArray()) {
            path = path / step.toInt();
            value = value.toArray().at(step.toInt());
        } else {
            path = path / step;
            value = value.toObject().value(step);
        }
    }
    return path;
}

/// The member's name in one of the validator's sentences, which stands between quotes behind these words; null for
/// another sentence.
QString memberIn(const QString& sentence, const char* words)
{
    const QString opening = QLatin1String(words) + QLatin1Char('\'');
    const int start = sentence.indexOf(opening);
    const int end = sentence.lastIndexOf(QLatin1Char('\''));
    return start < 0 ? QString() : sentence.mid(start + opening.size(), end - start - opening.size());
}

SchemaFault faultOf(const valijson::ValidationResults::Error& error, const QJsonValue& value,
                    const SchemaValidator& validator)
{
    const QString sentence = QString::fromStdString(error.description);
    const JsonPath path = pathOf(error.context, value);
    for (const char* words : {"Missing required property ", "Missing dependency "}) {
        const QString missing = memberIn(sentence, words);
        if (!missing.isNull()) {
            return {path / missing, tr("missing")};
        }
    }
    const QString unknown = memberIn(sentence, "'additionalProperties' constraints: ");
    if (!unknown.isNull()) {
        return {path / unknown, tr("unknown member")};
    }
    if (sentence.startsWith(QLatin1String("Object should have no "))) {
        return {path,
                tr("expected %1 members").arg(validator.rulesAt(path).value(QLatin1String("minProperties")).toInt())};
    }
    return {path, expectation(validator.rulesAt(path))};
}

} // namespace

struct SchemaValidator::Compiled {
    valijson::Schema schema;
};

QString SchemaFault::toString() const
{
    const QString place = path.toString();
    return place.isEmpty() ? text : place + QLatin1String(": ") + text;
}

const SchemaValidator& SchemaValidator::of(const QString& name)
{
    static QHash<QString, std::shared_ptr<const SchemaValidator>> known;
    std::shared_ptr<const SchemaValidator>& validator = known[name];
    if (!validator) {
        initResources();
        validator = std::make_shared<const SchemaValidator>(resource(name));
    }
    return *validator;
}

SchemaValidator::SchemaValidator(QJsonObject schema)
    : m_schema(std::move(schema)), m_compiled(std::make_unique<Compiled>())
{
    valijson::SchemaParser parser;
    parser.populateSchema(Adapter(QJsonValue(m_schema)), m_compiled->schema);
}

SchemaValidator::~SchemaValidator() = default;

bool SchemaValidator::fits(const QJsonValue& value) const
{
    return valijson::Validator().validate(m_compiled->schema, Adapter(value), nullptr);
}

std::optional<SchemaFault> SchemaValidator::fault(const QJsonValue& value) const
{
    const QVector<SchemaFault> all = faults(value);
    return all.isEmpty() ? std::nullopt : std::optional(all.first());
}

QVector<SchemaFault> SchemaValidator::faults(const QJsonValue& value) const
{
    QVector<SchemaFault> all;
    valijson::ValidationResults results;
    if (!fits(value)) {
        valijson::Validator().validate(m_compiled->schema, Adapter(value), &results);
    }
    for (const valijson::ValidationResults::Error& error : results) {
        // Says of a value that something below it was wrong, which comes before it in the list.
        if (error.description.rfind("Failed to validate ", 0) != 0) {
            all.append(faultOf(error, value, *this));
        }
    }
    return all;
}

QJsonObject SchemaValidator::rulesAt(const JsonPath& path) const
{
    QVector<QJsonObject> rules = unfolded(m_schema, m_schema);
    for (const QVariant& step : path.steps()) {
        QVector<QJsonObject> below;
        for (const QJsonObject& rule : rules) {
            below += unfolded(ruleBelow(rule, step), m_schema);
        }
        rules = below;
    }
    QJsonObject together;
    for (const QJsonObject& rule : rules) {
        for (auto keyword = rule.constBegin(); keyword != rule.constEnd(); ++keyword) {
            together.insert(keyword.key(), keyword.value());
        }
    }
    return together;
}

} // namespace sim
