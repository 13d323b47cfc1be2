#include "simulator/program/instructiontemplate.h"

#include "simulator/program/instructionline.h"

#include <QRegularExpression>
#include <QSet>

namespace sim
{

namespace
{

constexpr QLatin1Char kFieldMark('$');
constexpr QLatin1Char kPartMark('#');
constexpr QLatin1Char kItemMark('/');
constexpr QLatin1Char kQuote('"');

/// Reads a kind's argument into the field; returns what is wrong with it, empty: nothing.
using ArgumentReader = QString (*)(const QString& argument, TemplateField* field);

QString readRange(const QString& argument, TemplateField* field)
{
    const QStringList bounds = argument.split(QLatin1Char(','));
    bool lower = false;
    bool upper = false;
    field->minimum = bounds.first().toInt(&lower);
    field->maximum = bounds.last().toInt(&upper);
    if (bounds.size() != 2 || !lower || !upper) {
        return InstructionTemplate::tr("the range %1 is not two whole numbers with a comma between them").arg(argument);
    }
    if (field->minimum > field->maximum) {
        return InstructionTemplate::tr("the range %1 has its minimum above its maximum").arg(argument);
    }
    return {};
}

QString readItems(const QString& argument, TemplateField* field)
{
    QSet<QString> seen;
    for (const QString& part : argument.split(kItemMark)) {
        const QString item = part.trimmed();
        if (item.isEmpty()) {
            return InstructionTemplate::tr("an item is empty");
        }
        if (item.count(kQuote) % 2 != 0) {
            return InstructionTemplate::tr("the item %1 has a quote that is not closed").arg(item);
        }
        if (seen.contains(item)) {
            return InstructionTemplate::tr("the item %1 is there twice").arg(item);
        }
        seen.insert(item);
        field->items.append(item);
    }
    return {};
}

struct KindRow {
    const char* word;
    TemplateField::Kind kind;
    ArgumentReader read;
};

constexpr KindRow kKinds[] = {
    {"spn", TemplateField::Kind::Number, readRange},
    {"cmb", TemplateField::Kind::Choice, readItems},
};

/// Returns what is wrong with a field's text, empty: nothing.
QString readField(const QString& text, TemplateField* field)
{
    const QStringList parts = text.split(kPartMark);
    if (parts.size() != 4) {
        return InstructionTemplate::tr("it has not 4 parts, but %1").arg(parts.size());
    }
    field->label = parts.at(0).trimmed();
    if (field->label.isEmpty()) {
        return InstructionTemplate::tr("it has no label");
    }
    // Whether a field needs a value makes no difference to an input that always has one.
    const QString& flag = parts.at(3);
    if (flag != QLatin1String("true") && flag != QLatin1String("false")) {
        return InstructionTemplate::tr("expected true or false, not %1").arg(flag);
    }
    for (const KindRow& row : kKinds) {
        if (parts.at(1) == QLatin1String(row.word)) {
            field->kind = row.kind;
            return row.read(parts.at(2), field);
        }
    }
    return InstructionTemplate::tr("there is no kind %1").arg(parts.at(1));
}

/// Whether a value of the field may have the character outside its quotes, or as a quote.
bool mayHold(const TemplateField& field, QChar c)
{
    if (field.kind == TemplateField::Kind::Number) {
        return (c >= QLatin1Char('0') && c <= QLatin1Char('9')) || (c == QLatin1Char('-') && field.minimum < 0);
    }
    static const QRegularExpression quoted(QStringLiteral("\"[^\"]*\""));
    for (QString item : field.items) {
        if (item.replace(quoted, QStringLiteral("\"\"")).contains(c)) {
            return true;
        }
    }
    return false;
}

QString sampleValue(const TemplateField& field)
{
    return field.kind == TemplateField::Kind::Number ? QString::number(field.minimum) : field.items.first();
}

int skipSpace(const QString& text, int from)
{
    while (from < text.size() && text.at(from).isSpace()) {
        ++from;
    }
    return from;
}

/// Where a literal ends that begins at a place of the text; -1: it does not begin there. White space before the
/// literal's words and in the text is skipped.
int endOfLiteral(const QString& text, int from, const QStringList& words)
{
    for (const QString& word : words) {
        from = skipSpace(text, from);
        if (text.midRef(from, word.size()) != word) {
            return -1;
        }
        from += word.size();
    }
    return from;
}

struct Place {
    int begin;
    int end; ///< -1: nowhere
};

/// The first place of a literal outside the quotes that are opened from a place on; with atEnd, only white space may
/// follow it.
Place findLiteral(const QString& text, int from, const QStringList& words, bool atEnd)
{
    bool quoted = false;
    for (int begin = from; begin <= text.size(); ++begin) {
        const QChar c = begin < text.size() ? text.at(begin) : QChar();
        // What begins in white space also begins behind it.
        if (!quoted && !c.isSpace()) {
            const int end = endOfLiteral(text, begin, words);
            if (end >= 0 && (!atEnd || skipSpace(text, end) == text.size())) {
                return {begin, end};
            }
        }
        if (c == kQuote) {
            quoted = !quoted;
        }
    }
    return {-1, -1};
}

QStringList wordsOf(const QString& literal)
{
    // The same characters as skipSpace() takes for white space.
    return literal.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace

bool InstructionTemplate::isTemplate(const QString& skeleton)
{
    return skeleton.contains(kFieldMark);
}

std::optional<InstructionTemplate> InstructionTemplate::parse(const QString& text, QString* fault)
{
    // Literals and fields take turns, a literal is first and last.
    const QStringList pieces = text.split(kFieldMark);
    *fault = lineFault(text);
    if (!fault->isEmpty()) {
        return std::nullopt;
    }
    if (pieces.size() == 1) {
        *fault = tr("has no field");
        return std::nullopt;
    }
    if (pieces.size() % 2 == 0) {
        *fault = tr("field %1: it has no $ at its end").arg(pieces.size() / 2);
        return std::nullopt;
    }
    InstructionTemplate result;
    result.m_literals.append(pieces.first());
    for (int i = 1; i < pieces.size(); i += 2) {
        TemplateField field;
        const QString wrong = readField(pieces.at(i), &field);
        if (!wrong.isEmpty()) {
            *fault = tr("field %1: %2").arg(QString::number((i + 1) / 2), wrong);
            return std::nullopt;
        }
        result.m_fields.append(field);
        result.m_literals.append(pieces.at(i + 1));
    }
    *fault = result.shapeFault();
    if (!fault->isEmpty()) {
        return std::nullopt;
    }
    return result;
}

QString InstructionTemplate::shapeFault() const
{
    // values() ends a field where the first word behind it begins, so no value may have that beginning in it. The last
    // field ends where the line's end is all that follows.
    for (int i = 0; i + 1 < m_fields.size(); ++i) {
        const QString behind = m_literals.at(i + 1).trimmed();
        if (behind.isEmpty()) {
            return tr("field %1: nothing stands between it and the next field").arg(i + 1);
        }
        if (mayHold(m_fields.at(i), behind.at(0))) {
            return tr("field %1: a value can have the %2 in it that ends the field")
                .arg(QString::number(i + 1), behind.left(1));
        }
    }
    QStringList sample;
    for (const TemplateField& field : m_fields) {
        sample.append(sampleValue(field));
    }
    const QString sampleLine = line(sample);
    if (!splitLine(sampleLine).comment.isEmpty()) {
        return tr("has a comment");
    }
    // A comment behind such a line would be part of it.
    if (sampleLine.count(kQuote) % 2 != 0) {
        return tr("has a quote that is not closed");
    }
    return {};
}

QString InstructionTemplate::line(const QStringList& values) const
{
    QString text = m_literals.first();
    for (int i = 0; i < m_fields.size(); ++i) {
        text += values.value(i) + m_literals.at(i + 1);
    }
    return text;
}

std::optional<QStringList> InstructionTemplate::values(const QString& code) const
{
    int begin = endOfLiteral(code, 0, wordsOf(m_literals.first()));
    if (begin < 0) {
        return std::nullopt;
    }
    QStringList values;
    for (int i = 1; i < m_literals.size(); ++i) {
        const bool isLast = i + 1 == m_literals.size();
        const Place literal = findLiteral(code, begin, wordsOf(m_literals.at(i)), isLast);
        if (literal.end < 0) {
            return std::nullopt;
        }
        values.append(code.mid(begin, literal.begin - begin).trimmed());
        begin = literal.end;
    }
    return values;
}

} // namespace sim
