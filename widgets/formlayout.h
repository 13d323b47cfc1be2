#ifndef WIDGETS_FORMLAYOUT_H
#define WIDGETS_FORMLAYOUT_H

#include <QList>

class QLabel;
class QWidget;

/// What the forms of the configuration pages do with their rows of caption, field and unit.

/// The labels below form that show a unit: those with the property "type" set to "unit".
QList<QWidget*> unitLabels(const QWidget* form);

/// The spin boxes below form.
QList<QWidget*> numberFields(const QWidget* form);

/// Gives all widgets the width that the widest one asks for, so that they stand in one line across frames whose
/// layouts know nothing of each other. Measuring polishes the widgets: a sheet that is set later on a frame which is
/// not on the screen yet would no longer reach them.
void alignWidths(const QList<QWidget*>& widgets);

/// Makes the rows of a form compact: spacers take no room of their own, number fields are as high as a row. A sheet
/// that takes effect later overrules the height.
void compactRows(QWidget* form);

#endif
