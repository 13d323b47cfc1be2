#include "docs/generator/guide.h"

#include <QRegularExpression>
#include <QStringList>

namespace
{

using names::command::Answer;
using names::command::Argument;
using names::command::Command;
using names::node::Content;
using names::node::Node;

QString code(const QString& text)
{
    return QLatin1Char('`') + text + QLatin1Char('`');
}

QString schemaLink(const char* name)
{
    return QStringLiteral("[schema](schema/%1.schema.json)").arg(QLatin1String(name));
}

QString row(const QStringList& cells)
{
    return QStringLiteral("| %1 |\n").arg(cells.join(QStringLiteral(" | ")));
}

QString header(const QStringList& titles)
{
    return row(titles) + QLatin1Char('|') + QStringLiteral("---|").repeated(titles.size()) + QLatin1Char('\n');
}

QString valuesTable()
{
    QString table = header({"Name", "Content", "Read by", ""});
    for (const Node* node : names::node::kAll) {
        switch (node->content) {
        case Content::Object:
            table += row({code(node->name), "object, see below", node->use, schemaLink(node->name)});
            break;
        case Content::Boolean:
            table += row({code(node->name), "boolean", node->use, schemaLink(node->name)});
            break;
        case Content::Stream:
            table += row({code(node->name), "live values, see below", node->use, schemaLink(node->name)});
            break;
        }
    }
    return table;
}

QString argumentWords(const Command& command)
{
    switch (command.argument) {
    case Argument::Node:
        return QStringLiteral("the node with all its members");
    case Argument::Curve:
        return QStringLiteral("the two members of one curve");
    case Argument::Boolean:
        return QStringLiteral("boolean");
    case Argument::True:
        return QStringLiteral("always `true`");
    case Argument::False:
        return QStringLiteral("always `false`");
    case Argument::Word:
        return QStringLiteral("text `TRUE` or `FALSE`, beside the name");
    }
    return {};
}

struct AnswerRow {
    Answer answer;
    const char* name;
    const char* words;
};

constexpr AnswerRow kAnswers[] = {
    {Answer::Code, "code",
     "Whole number. 0: done; any other: failed, and the operator is told. What is no whole number of 32 bits, a text "
     "too, counts as 0. The first element that answers the command counts; when none does, a line is logged and the "
     "operator is told nothing."},
    {Answer::ReadCode, "read code",
     "Number, its fraction cut off; or a text with a whole number; or a boolean, `true` being 1. 0, and what can't be "
     "read: done; any other: failed, and the operator is told. The first element that answers the command counts; when "
     "none does, the operator is told that there was no answer."},
    {Answer::AnyCode, "any code", "The same, but only the first element counts, and no answer counts as 0."},
    {Answer::Done, "done",
     "Boolean. `true`: done; anything else, a number or no answer too: refused, and the operator is told. Only the "
     "first element counts."},
    {Answer::Line, "line",
     "Instead of `return` the numbers `slope` and `intercept`; what is missing, or no number, counts as 0. The last "
     "element counts, whatever it answers; no answer is the line of slope 0, which is not drawn. The operator is told "
     "nothing."},
    {Answer::Ignored, "ignored", "Nobody looks at it."},
};

QString answerName(Answer answer)
{
    for (const AnswerRow& known : kAnswers) {
        if (known.answer == answer) {
            return QLatin1String(known.name);
        }
    }
    qFatal("an answer has no row in docs/generator/guide.cpp");
}

QString commandsTable()
{
    QString table = header({"Command", "Argument", "Sent", "Sender", "Answer", ""});
    for (const Command* command : names::command::kAll) {
        table += row({code(command->name), argumentWords(*command), command->occasion, code(command->sender),
                      answerName(command->answer), schemaLink(command->name)});
    }
    return table;
}

QString answersTable()
{
    QString table = header({"Answer", "How `return` is read"});
    for (const AnswerRow& answer : kAnswers) {
        table += row({answer.name, answer.words});
    }
    return table;
}

QString captionOf(const NodeMember& member)
{
    const QString caption = member.caption.endsWith(QLatin1Char(':')) ? member.caption.chopped(1) : member.caption;
    return (member.isHidden ? QStringLiteral("(hidden) ") : QString()) + caption.simplified();
}

QString memberRow(const NodeMember& member)
{
    return row({code(member.key), captionOf(member), member.type, member.range, member.unit, member.whenMissing,
                code(member.widget)});
}

QString memberTable(const NodeForm& form)
{
    QString table = header({"Member", "On the page", "Type", "Range", "Unit", "When missing", "Widget"});
    for (const NodeMember& member : form.members) {
        table += memberRow(member);
    }
    return table;
}

QString monitorTable()
{
    QString table = header({"Member", "In the monitor", "Range"});
    for (const MonitorValue& value : monitorValues()) {
        table +=
            row({code(value.key), value.caption, QStringLiteral("%1 to %2").arg(value.minimum).arg(value.maximum)});
    }
    return table;
}

} // namespace

QMap<QString, QString> guideSections(const QVector<NodeForm>& forms)
{
    QMap<QString, QString> sections{{"values", valuesTable()},
                                    {"commands", commandsTable()},
                                    {"answers", answersTable()},
                                    {"monitor", monitorTable()}};
    for (const NodeForm& form : forms) {
        sections.insert(form.node->name, memberTable(form));
    }
    return sections;
}

QString withSections(const QString& text, const QMap<QString, QString>& sections, QString* fault)
{
    static const QRegularExpression marked(QStringLiteral("(<!-- generated: (\\S+) -->\n).*?(<!-- end -->)"),
                                           QRegularExpression::DotMatchesEverythingOption);
    QString result;
    QStringList missing = sections.keys();
    int end = 0;
    auto matches = marked.globalMatch(text);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        const QString name = match.captured(2);
        if (!sections.contains(name)) {
            *fault = QStringLiteral("nothing generates the section %1").arg(name);
        }
        missing.removeOne(name);
        result +=
            text.mid(end, match.capturedStart() - end) + match.captured(1) + sections.value(name) + match.captured(3);
        end = match.capturedEnd();
    }
    if (!missing.isEmpty()) {
        *fault = QStringLiteral("the guide lacks <!-- generated: %1 --> ... <!-- end -->").arg(missing.first());
    }
    return result + text.mid(end);
}
