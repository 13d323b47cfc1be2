#include "docs/generator/schemas.h"

#include <QJsonArray>

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

/// The rows of nodeforms.cpp know every node and every command that saves one.
[[noreturn]] void failWithoutRow(const char* name)
{
    qFatal("%s has no row in docs/generator/nodeforms.cpp", name);
}

QJsonObject nodeSchema(const Node& node, const QVector<NodeForm>& forms)
{
    for (const NodeForm& form : forms) {
        if (form.node == &node) {
            return form.published;
        }
    }
    failWithoutRow(node.name);
}

QJsonObject saveSchema(const Command& command, const QVector<NodeForm>& forms)
{
    for (const NodeForm& form : forms) {
        if (form.sent.contains(command.name)) {
            return form.sent.value(command.name);
        }
    }
    failWithoutRow(command.name);
}

QJsonObject argumentSchema(const Command& command, const QVector<NodeForm>& forms)
{
    switch (command.argument) {
    case Argument::Node:
    case Argument::Curve:
        return saveSchema(command, forms);
    case Argument::Boolean:
    case Argument::False: // true is for others to send
        return typed("boolean");
    case Argument::True:
        return exactly(true);
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
    case Answer::ReadCode:
    case Answer::AnyCode:
        return {{"anyOf",
                 QJsonArray{number, QJsonObject{{"type", "string"}, {"pattern", "^-?[0-9]+$"}}, typed("boolean")}}};
    case Answer::Done:
        return typed("boolean");
    case Answer::Line:
    case Answer::Ignored:
        return {};
    }
    return {};
}

QJsonObject answerSchema(Answer answer)
{
    if (answer == Answer::Line) {
        return {{"type", "object"},
                {"properties", QJsonObject{{"slope", typed("number")}, {"intercept", typed("number")}}},
                {"required", QJsonArray{"intercept", "slope"}}};
    }
    return {{"type", "object"},
            {"properties", QJsonObject{{"return", returnSchema(answer)}}},
            {"required", QJsonArray{"return"}}};
}

QJsonObject resultSchema(QJsonObject answers)
{
    for (const Command* command : names::command::kAll) {
        answers.insert(command->name, answerSchema(command->answer));
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

QMap<QString, QJsonObject> interfaceSchemas(const QVector<NodeForm>& forms, const QJsonObject& otherAnswers)
{
    QMap<QString, QJsonObject> schemas;
    for (const Node* node : names::node::kAll) {
        const QString name = QLatin1String(node->name);
        switch (node->content) {
        case Content::Object:
            schemas.insert(name, titled(nodeSchema(*node, forms), QStringLiteral("Node %1").arg(name)));
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
    schemas.insert("result", titled(resultSchema(otherAnswers), "Result array of a command"));
    return schemas;
}
