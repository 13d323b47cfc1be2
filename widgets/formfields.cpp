#include "widgets/formfields.h"

#include "common/truncate.h"
#include "widgets/enablebutton.h"

#include <QComboBox>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QSpinBox>

#include <algorithm>

namespace
{

int entryOf(const FieldSpec& row, const QJsonValue& stored)
{
    const int index = stored.toInt();
    if (!stored.isUndefined() && index >= 0 && index < row.entries) {
        return index;
    }
    return row.fallback == kNearestEntry ? std::clamp(index, 0, row.entries - 1) : row.fallback;
}

} // namespace

QJsonValue taken(const FieldSpec& row, const QJsonValue& stored)
{
    switch (row.read) {
    case Read::Integer:
        return stored.toInt();
    case Read::Truncated:
        return truncatedToInt(stored.toDouble());
    case Read::Bool:
        return stored.toBool();
    case Read::Text:
        return stored.toString();
    case Read::Choice:
        return entryOf(row, stored);
    case Read::Fixed:
        break;
    }
    return row.standard;
}

QJsonValue standardOf(const FieldSpec& row)
{
    switch (row.read) {
    case Read::Bool:
        return row.standard != 0;
    case Read::Text:
        return QString();
    default:
        return row.standard;
    }
}

FormFields::FormFields(const QWidget* form, const FieldSpec* specs, int count)
{
    m_fields.reserve(static_cast<std::size_t>(count));
    for (const FieldSpec* spec = specs; spec != specs + count; ++spec) {
        const FieldWidget widget = find(form, *spec);
        if (std::visit([](const auto* found) { return found == nullptr; }, widget)) {
            qFatal("form %s has no fitting widget %s for member %s", qPrintable(form->objectName()), spec->widget,
                   spec->key);
        }
        m_fields.push_back({*spec, widget});
    }
}

FormFields::FieldWidget FormFields::find(const QWidget* form, const FieldSpec& spec)
{
    const QString name = QLatin1String(spec.widget);
    switch (spec.read) {
    case Read::Integer:
    case Read::Truncated:
        return form->findChild<QSpinBox*>(name);
    case Read::Bool:
        return form->findChild<EnableButton*>(name);
    case Read::Text:
        return form->findChild<QLineEdit*>(name);
    case Read::Choice:
    case Read::Fixed:
        break;
    }
    return form->findChild<QComboBox*>(name);
}

void FormFields::show(const Field& field, const QJsonValue& value)
{
    struct Setter {
        const QJsonValue& value;
        void operator()(QSpinBox* box) const { box->setValue(value.toInt()); }
        void operator()(EnableButton* button) const { button->setIsEnabled(value.toBool(), false); }
        void operator()(QLineEdit* edit) const { edit->setText(value.toString()); }
        void operator()(QComboBox* box) const { box->setCurrentIndex(value.toInt()); }
    };
    std::visit(
        [&value](auto* widget) {
            const QSignalBlocker silent(widget);
            Setter{value}(widget);
        },
        field.widget);
}

QJsonValue FormFields::shown(const Field& field)
{
    struct Getter {
        QJsonValue operator()(const QSpinBox* box) const { return box->value(); }
        QJsonValue operator()(EnableButton* button) const { return button->getIsEnabled(); }
        QJsonValue operator()(const QLineEdit* edit) const { return edit->text(); }
        QJsonValue operator()(const QComboBox* box) const { return box->currentIndex(); }
    };
    return field.spec.read == Read::Fixed ? standardOf(field.spec) : std::visit(Getter(), field.widget);
}

void FormFields::load(const QJsonObject& node) const
{
    for (const Field& field : m_fields) {
        show(field, taken(field.spec, node.value(QLatin1String(field.spec.key))));
    }
}

void FormFields::reset() const
{
    for (const Field& field : m_fields) {
        show(field, standardOf(field.spec));
    }
}

void FormFields::commit() const
{
    for (const Field& field : m_fields) {
        if (auto* const* box = std::get_if<QSpinBox*>(&field.widget)) {
            (*box)->interpretText();
        }
    }
}

QJsonObject FormFields::save() const
{
    commit();
    QJsonObject node;
    for (const Field& field : m_fields) {
        node.insert(QLatin1String(field.spec.key), shown(field));
    }
    return node;
}
