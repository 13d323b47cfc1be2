#ifndef SIMULATOR_PROGRAM_TEMPLATEEDITOR_H
#define SIMULATOR_PROGRAM_TEMPLATEEDITOR_H

#include "pendix/rl.h"
#include "simulator/program/instructiontemplate.h"

#include <QVector>

class QComboBox;
class QSpinBox;

namespace sim
{

/// The input form that the host builds from an instruction's template: one row per field. The inputs are named
/// field1, field2 and so on.
class TemplateEditor : public pendix::RLContentBase
{
    Q_OBJECT

public:
    explicit TemplateEditor(const InstructionTemplate& instruction, QWidget* parent = nullptr);

    /// Reads the values of a line, whose comment does not count. A number beyond a field's range becomes the nearest
    /// bound; a field for which the line has no number, or no item of its list, stays as it is, and so does the whole
    /// form when the line is of another shape.
    void FillWith(const QString& line) override;
    QString ToString() override;
    /// The inputs take nothing but what the template allows.
    bool CheckInsert() override { return true; }
    bool CheckReplace() override { return true; }

private:
    /// One of the two, the other is null.
    struct Input {
        QSpinBox* number;
        QComboBox* choice;
    };

    Input createInput(const TemplateField& field);
    static void fill(const Input& input, const QString& value);

    InstructionTemplate m_template;
    QVector<Input> m_inputs;
};

} // namespace sim

#endif
