#include "widgets/formlayout.h"

#include "widgets/pagestyle.h"
#include "widgets/uiscale.h"

#include <QAbstractSpinBox>
#include <QLabel>
#include <QVariant>

#include <algorithm>

QList<QWidget*> unitLabels(const QWidget* form)
{
    QList<QWidget*> units;
    for (QLabel* label : form->findChildren<QLabel*>()) {
        if (label->property("type") == QLatin1String("unit")) {
            units.append(label);
        }
    }
    return units;
}

QList<QWidget*> numberFields(const QWidget* form)
{
    QList<QWidget*> fields;
    for (QAbstractSpinBox* field : form->findChildren<QAbstractSpinBox*>()) {
        fields.append(field);
    }
    return fields;
}

void alignWidths(const QList<QWidget*>& widgets)
{
    int width = 0;
    for (const QWidget* widget : widgets) {
        width = std::max(width, widget->sizeHint().width());
    }
    for (QWidget* widget : widgets) {
        widget->setMinimumWidth(width);
    }
}

void compactRows(QWidget* form)
{
    tightenPageHorizontalSpacers(form);
    const int rowHeight = UiScale::formRowHeight(form);
    for (QWidget* field : numberFields(form)) {
        field->setMinimumHeight(rowHeight);
    }
}
