#ifndef WIDGETS_FORMFIELDS_H
#define WIDGETS_FORMFIELDS_H

#include <QJsonObject>

#include <vector>

class QWidget;

/// How a member of a configuration node is read into its widget.
enum class Read {
    Integer,   ///< whole number, anything else reads as 0; spin box
    Truncated, ///< number, truncated toward zero, anything else reads as 0; spin box
    Bool,      ///< boolean, anything else reads as false; EnableButton
    Fixed      ///< not read: always the fixed value; combo box, by index
};

/// One member of a configuration node. A node is described once, as a static table of these rows; ranges
/// stay in the form.
struct FieldSpec {
    const char* key;    ///< JSON key
    const char* widget; ///< object name
    Read read;
    int fixedValue = 0; ///< written and shown by Read::Fixed
};

/// Binds the rows of a configuration node to the widgets of a form and carries values both ways.
class FormFields
{
public:
    /// Finds every row's widget below form. A missing widget, or one of another kind, is a programming
    /// error and ends the process with its name.
    template <int N>
    FormFields(const QWidget* form, const FieldSpec (&specs)[N]) : FormFields(form, specs, N)
    {
    }

    /// Sets every widget silently: nothing emits. Missing and mistyped members read as 0 or false, which
    /// the widget's range then clamps.
    void load(const QJsonObject& node) const;

    /// All members with the widgets' current values.
    QJsonObject save() const;

private:
    struct Field {
        FieldSpec spec;
        QWidget* widget;
    };

    FormFields(const QWidget* form, const FieldSpec* specs, int count);

    std::vector<Field> m_fields;
};

#endif
