#include "simulator/program/templateeditor.h"

#include "simulator/program/instructionline.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QRegularExpression>
#include <QSpinBox>

namespace sim
{

namespace
{

constexpr int kInputCharacters = 16;

/// The value of a field that the line gives as text; what is too large or small for the type stands for the limit.
std::optional<int> wholeNumber(const QString& text, int minimum, int maximum)
{
    static const QRegularExpression form(QRegularExpression::anchoredPattern(QStringLiteral("[+-]?[0-9]+")));
    if (!form.match(text).hasMatch()) {
        return std::nullopt;
    }
    bool fits = false;
    const qlonglong number = text.toLongLong(&fits);
    if (!fits) {
        return text.startsWith(QLatin1Char('-')) ? minimum : maximum;
    }
    return int(qBound<qlonglong>(minimum, number, maximum));
}

} // namespace

TemplateEditor::TemplateEditor(const InstructionTemplate& instruction, QWidget* parent)
    : RLContentBase(parent), m_template(instruction)
{
    auto* rows = new QFormLayout;
    rows->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    // On a dense screen a long label takes a line of its own.
    rows->setRowWrapPolicy(QFormLayout::WrapLongRows);
    for (const TemplateField& field : m_template.fields()) {
        const Input input = createInput(field);
        m_inputs.append(input);
        QWidget* widget = input.number != nullptr ? static_cast<QWidget*>(input.number) : input.choice;
        widget->setObjectName(QStringLiteral("field%1").arg(m_inputs.size()));
        widget->setMinimumWidth(kInputCharacters * fontMetrics().averageCharWidth());
        widget->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        auto* label = new QLabel(field.label);
        label->setTextFormat(Qt::PlainText);
        // As two widgets: a label that was given as text would take an "&" for a shortcut.
        rows->addRow(label, widget);
    }
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(rows);
    layout->addStretch();
}

TemplateEditor::Input TemplateEditor::createInput(const TemplateField& field)
{
    if (field.kind == TemplateField::Kind::Number) {
        auto* number = new QSpinBox(this);
        number->setRange(field.minimum, field.maximum);
        number->setValue(field.minimum);
        return {number, nullptr};
    }
    auto* choice = new QComboBox(this);
    choice->addItems(field.items);
    return {nullptr, choice};
}

void TemplateEditor::fill(const Input& input, const QString& value)
{
    if (input.number != nullptr) {
        if (const auto number = wholeNumber(value, input.number->minimum(), input.number->maximum())) {
            input.number->setValue(*number);
        }
        return;
    }
    const int position = input.choice->findText(value);
    if (position >= 0) {
        input.choice->setCurrentIndex(position);
    }
}

void TemplateEditor::FillWith(const QString& line)
{
    const std::optional<QStringList> values = m_template.values(splitLine(line).code);
    for (int i = 0; values && i < m_inputs.size(); ++i) {
        fill(m_inputs.at(i), values->at(i));
    }
}

QString TemplateEditor::ToString()
{
    QStringList values;
    for (const Input& input : m_inputs) {
        values.append(input.number != nullptr ? QString::number(input.number->value()) : input.choice->currentText());
    }
    return m_template.line(values);
}

} // namespace sim
