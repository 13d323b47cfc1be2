#ifndef WIDGETS_FORMFIELDS_H
#define WIDGETS_FORMFIELDS_H

#include <QJsonObject>
#include <QJsonValue>

#include <variant>
#include <vector>

class EnableButton;
class QComboBox;
class QLineEdit;
class QSpinBox;
class QWidget;

/// How a member of a configuration node is read into its widget.
enum class Read {
    Integer,   ///< whole number, anything else reads as 0; spin box
    Truncated, ///< number, truncated toward zero, anything else reads as 0; spin box
    Bool,      ///< boolean, anything else reads as false; EnableButton
    Text,      ///< text, anything else reads as an empty one; line edit
    Choice,    ///< index of an entry, read like Integer; combo box
    Fixed      ///< not read: always the standard value; combo box, by index
};

/// The fallback of a choice that goes to the entry nearest to an index that the list does not have.
constexpr int kNearestEntry = -1;

/// One member of a configuration node. A node is described once, as a static table of these rows; ranges
/// stay in the form.
struct FieldSpec {
    const char* key;    ///< JSON key
    const char* widget; ///< object name
    Read read;
    int standard = 0; ///< when the whole set is missing: number, index, 1 for a switch that is on; a text is empty
    int entries = 0;  ///< of a choice: how many there are, at least 1
    int fallback = kNearestEntry; ///< of a choice: the entry for a missing member, or for an index beyond the entries
};

/// What a row makes of a stored value; undefined: the member is missing. A number (of a choice: one of its entries),
/// a boolean or a text. The range of a number is the form's business.
QJsonValue taken(const FieldSpec& row, const QJsonValue& stored);

/// What a row shows when the whole set is missing.
QJsonValue standardOf(const FieldSpec& row);

/// Carries values between the rows of a configuration node and the widgets of a form.
class FormFields
{
public:
    /// Finds every row's widget below form. A missing widget, or one of another kind, is a programming
    /// error and ends the process with its name.
    template <int N>
    FormFields(const QWidget* form, const FieldSpec (&specs)[N]) : FormFields(form, specs, N)
    {
    }

    /// Sets every widget silently to what its row takes from the node: nothing emits. Numbers are clamped to the
    /// widget's range.
    void load(const QJsonObject& node) const;

    /// Sets every widget silently to its standard value.
    void reset() const;

    /// Ends what is being typed, as leaving the field would: what a field shows is then what it holds.
    void commit() const;

    /// All members with the widgets' current values; what is typed and not committed yet counts.
    QJsonObject save() const;

private:
    using FieldWidget = std::variant<QSpinBox*, EnableButton*, QLineEdit*, QComboBox*>;
    struct Field {
        FieldSpec spec;
        FieldWidget widget;
    };

    FormFields(const QWidget* form, const FieldSpec* specs, int count);
    static FieldWidget find(const QWidget* form, const FieldSpec& spec);
    static void show(const Field& field, const QJsonValue& value);
    static QJsonValue shown(const Field& field);

    std::vector<Field> m_fields;
};

#endif
