#include "tests/interface/schemas.h"

#include <QJsonArray>

#include <algorithm>
#include <limits>

namespace
{

using names::command::Answer;
using names::command::Argument;
using names::command::Command;
using names::node::Content;
using names::node::Node;

QJsonObject typed(const char* type)
{
    return {{"type", type}};
}

QJsonObject exactly(const QJsonValue& value)
{
    return {{"const", value}};
}

enum class Direction { Read, Sent };

QJsonObject memberSchema(const NodeMember& member, Direction direction)
{
    QJsonObject schema;
    switch (member.spec.read) {
    case Read::Integer:
    case Read::Truncated:
        schema = {{"type", "integer"}, {"minimum", member.minimum}, {"maximum", member.maximum}};
        break;
    case Read::Bool:
        schema = typed("boolean");
        break;
    case Read::Text:
        schema = typed("string");
        break;
    case Read::Choice:
        schema = {{"type", "integer"}, {"minimum", 0}, {"maximum", member.spec.entries - 1}};
        break;
    case Read::Fixed:
        schema = direction == Direction::Sent ? exactly(member.spec.standard) : QJsonObject();
        break;
    }
    QString words = member.caption;
    if (!member.unit.isEmpty()) {
        words += QStringLiteral(", ") + member.unit;
    }
    if (member.spec.read == Read::Fixed && direction == Direction::Read) {
        words += QStringLiteral("; not read");
    }
    schema.insert("description", words);
    return schema;
}

/// A node as it is published, or as its save command sends it. Published, it may lack what is not read, and hold
/// more than is read.
QJsonObject nodeSchema(const NodeForm& form, Direction direction)
{
    QJsonObject properties;
    QJsonArray required;
    for (const NodeMember& member : form.members) {
        const QString key = QLatin1String(member.spec.key);
        properties.insert(key, memberSchema(member, direction));
        if (direction == Direction::Sent || member.spec.read != Read::Fixed) {
            required.append(key);
        }
    }
    return {{"type", "object"},
            {"properties", properties},
            {"required", required},
            {"additionalProperties", direction == Direction::Read}};
}

const NodeForm& formOf(const QVector<NodeForm>& forms, const char* name)
{
    const auto form = std::find_if(forms.begin(), forms.end(), [name](const NodeForm& candidate) {
        return candidate.node->name == name || candidate.save->name == name;
    });
    if (form == forms.end()) {
        qFatal("%s has no row in tests/interface/nodeforms.cpp", name);
    }
    return *form;
}

QJsonObject argumentSchema(const Command& command, const QVector<NodeForm>& forms)
{
    switch (command.argument) {
    case Argument::Node:
        return nodeSchema(formOf(forms, command.name), Direction::Sent);
    case Argument::Boolean:
        return typed("boolean");
    case Argument::True:
        return exactly(true);
    case Argument::False:
        return exactly(false);
    case Argument::Word:
        return {{"enum", QJsonArray{"TRUE", "FALSE"}}};
    }
    return {};
}

/// A set of live values. Ranges are for who opens the monitor to set.
QJsonObject monitorSchema()
{
    QJsonObject properties;
    QJsonArray required;
    for (const MonitorValue& value : monitorValues()) {
        properties.insert(value.key, QJsonObject{{"type", "number"}, {"description", value.caption}});
        required.append(value.key);
    }
    return {{"type", "object"}, {"properties", properties}, {"required", required}};
}

/// What a "return" may be without being misread: a text where only numbers count would read as success.
QJsonObject returnSchema(Answer answer)
{
    QJsonObject number{{"type", "integer"},
                       {"minimum", std::numeric_limits<int>::min()},
                       {"maximum", std::numeric_limits<int>::max()}};
    switch (answer) {
    case Answer::Code:
        return number;
    case Answer::AnyCode:
        return {{"anyOf",
                 QJsonArray{number, QJsonObject{{"type", "string"}, {"pattern", "^-?[0-9]+$"}}, typed("boolean")}}};
    case Answer::Done:
        return typed("boolean");
    case Answer::Ignored:
        return {};
    }
    return {};
}

QJsonObject resultSchema()
{
    QJsonObject answers;
    for (const Command* command : names::command::kAll) {
        answers.insert(command->name,
                       QJsonObject{{"type", "object"},
                                   {"properties", QJsonObject{{"return", returnSchema(command->answer)}}},
                                   {"required", QJsonArray{"return"}}});
    }
    const QJsonObject own{{"type", "object"}, {"properties", answers}};
    return {{"type", "array"},
            {"items", QJsonObject{{"type", "object"}, {"properties", QJsonObject{{names::kPlugin, own}}}}}};
}

QJsonObject titled(QJsonObject schema, const QString& title)
{
    schema.insert("$schema", "http://json-schema.org/draft-07/schema#");
    schema.insert("title", title);
    return schema;
}

} // namespace

QMap<QString, QJsonObject> interfaceSchemas(const QVector<NodeForm>& forms)
{
    QMap<QString, QJsonObject> schemas;
    for (const Node* node : names::node::kAll) {
        const QString name = QLatin1String(node->name);
        switch (node->content) {
        case Content::Object:
            schemas.insert(name, titled(nodeSchema(formOf(forms, node->name), Direction::Read),
                                        QStringLiteral("Node %1, shown and saved unchanged").arg(name)));
            break;
        case Content::Boolean:
            schemas.insert(name, titled(typed("boolean"), QStringLiteral("Value %1").arg(name)));
            break;
        case Content::Stream:
            schemas.insert(name, titled(monitorSchema(), QStringLiteral("A set of live values of %1").arg(name)));
            break;
        }
    }
    for (const Command* command : names::command::kAll) {
        schemas.insert(command->name, titled(argumentSchema(*command, forms),
                                             QStringLiteral("Argument of the command %1").arg(command->name)));
    }
    schemas.insert("result", titled(resultSchema(), "Result array of a command"));
    return schemas;
}
