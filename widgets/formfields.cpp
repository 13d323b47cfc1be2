#include "widgets/formfields.h"

#include "common/truncate.h"
#include "widgets/enablebutton.h"

#include <QComboBox>
#include <QJsonValue>
#include <QSignalBlocker>
#include <QSpinBox>

namespace
{

QWidget* findOfKind(const QWidget* form, const FieldSpec& spec)
{
    const QString name = QLatin1String(spec.widget);
    switch (spec.read) {
    case Read::Integer:
    case Read::Truncated:
        return form->findChild<QSpinBox*>(name);
    case Read::Bool:
        return form->findChild<EnableButton*>(name);
    case Read::Fixed:
        return form->findChild<QComboBox*>(name);
    }
    return nullptr;
}

} // namespace

FormFields::FormFields(const QWidget* form, const FieldSpec* specs, int count)
{
    m_fields.reserve(static_cast<std::size_t>(count));
    for (const FieldSpec* spec = specs; spec != specs + count; ++spec) {
        QWidget* widget = findOfKind(form, *spec);
        if (widget == nullptr) {
            qFatal("form %s has no fitting widget %s for member %s", qPrintable(form->objectName()), spec->widget,
                   spec->key);
        }
        m_fields.push_back({*spec, widget});
    }
}

void FormFields::load(const QJsonObject& node) const
{
    for (const Field& field : m_fields) {
        const QJsonValue value = node.value(QLatin1String(field.spec.key));
        const QSignalBlocker silent(field.widget);
        switch (field.spec.read) {
        case Read::Integer:
            static_cast<QSpinBox*>(field.widget)->setValue(value.toInt());
            break;
        case Read::Truncated:
            static_cast<QSpinBox*>(field.widget)->setValue(truncatedToInt(value.toDouble()));
            break;
        case Read::Bool:
            static_cast<EnableButton*>(field.widget)->setIsEnabled(value.toBool(), false);
            break;
        case Read::Fixed:
            static_cast<QComboBox*>(field.widget)->setCurrentIndex(field.spec.fixedValue);
            break;
        }
    }
}

QJsonObject FormFields::save() const
{
    QJsonObject node;
    for (const Field& field : m_fields) {
        const QString key = QLatin1String(field.spec.key);
        switch (field.spec.read) {
        case Read::Integer:
        case Read::Truncated:
            node.insert(key, static_cast<QSpinBox*>(field.widget)->value());
            break;
        case Read::Bool:
            node.insert(key, static_cast<EnableButton*>(field.widget)->getIsEnabled());
            break;
        case Read::Fixed:
            node.insert(key, field.spec.fixedValue);
            break;
        }
    }
    return node;
}
