#ifndef CHECKS_MONKEY_HANDS_H
#define CHECKS_MONKEY_HANDS_H

#include "checks/support/dice.h"

#include <QString>
#include <QVector>

class QWidget;

/// How an operator's hands use a widget, whatever page or editor it is in.
namespace hands
{

/// The widgets below root that can be used now: visible, enabled, of a kind that takes input. In a stable order.
QVector<QWidget*> usable(const QWidget* root);

/// Whether the widget is a list of which nothing is chosen.
bool isToBeChosen(const QWidget* widget);

/// A name that tells the widget from its siblings and stays the same from run to run. What is in the cells of a table
/// is named after its column: the rows are twins.
QString nameOf(const QWidget* widget);

/// Uses the widget in one of the ways of its kind and tells how. It may be gone afterwards.
QString use(QWidget* widget, Dice& dice);

/// Presses any key on the widget that has the focus, or on root.
QString pressAnyKey(QWidget* root, Dice& dice);

/// Clicks anywhere in root.
QString clickAnywhere(QWidget* root, Dice& dice);

} // namespace hands

#endif
