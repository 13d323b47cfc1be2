#ifndef SIMULATOR_PROGRAM_INSTRUCTIONTEMPLATE_H
#define SIMULATOR_PROGRAM_INSTRUCTIONTEMPLATE_H

#include <QCoreApplication>
#include <QString>
#include <QStringList>
#include <QVector>

#include <optional>

namespace sim
{

/// One parameter of an instruction, as an input form asks for it.
struct TemplateField {
    enum class Kind { Number, Choice };

    QString label;
    Kind kind = Kind::Number;
    int minimum = 0;   ///< of a number
    int maximum = 0;   ///< of a number
    QStringList items; ///< of a choice: the texts that go into the line, with their quotes
};

/// An instruction's text with a field between two "$" for each parameter:
///     Weave($Width (mm):#spn#1,20#true$, $Shape:#cmb#"sine"/"square"#true$);
/// A field is a label, a kind, the kind's argument and "true" or "false", with "#" between them. The kinds are "spn",
/// a whole number from a minimum to a maximum, and "cmb", one of the items between which "/" stands. White space
/// around a label or an item does not count.
class InstructionTemplate
{
    Q_DECLARE_TR_FUNCTIONS(sim::InstructionTemplate)

public:
    /// Whether a skeleton is meant as a template.
    static bool isTemplate(const QString& skeleton);

    /// Reads a template. A malformed one yields nothing and says in fault what is wrong, and in which field: also one
    /// from whose lines the values could not be told again.
    static std::optional<InstructionTemplate> parse(const QString& text, QString* fault);

    const QVector<TemplateField>& fields() const { return m_fields; }

    /// The instruction with one value for each field, unchanged. Missing values are empty, surplus ones are left out.
    QString line(const QStringList& values) const;

    /// The values out of the code of a line, without the white space around them; they need not be ones that the
    /// fields allow. Where the template has white space and around the fields, the line may have more, less or none.
    /// Nothing when the code has not the template's shape.
    std::optional<QStringList> values(const QString& code) const;

private:
    QString shapeFault() const;

    QStringList m_literals; ///< before, between and behind the fields
    QVector<TemplateField> m_fields;
};

} // namespace sim

#endif
