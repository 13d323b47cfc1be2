#ifndef SIMULATOR_USERINPUT_H
#define SIMULATOR_USERINPUT_H

#include <QPoint>
#include <QString>
#include <Qt>

class QWidget;

namespace sim
{

/// Mouse and keys as a person at the pendant uses them. Each returns what prevented it, empty when it went
/// through: like a finger, it reaches only what is visible and enabled.
namespace userinput
{

/// Scrolls the widget into view and clicks its middle, or another place in it, with the left button.
QString click(QWidget* widget);
QString click(QWidget* widget, const QPoint& place);
/// The same, twice in a row.
QString doubleClick(QWidget* widget, const QPoint& place);

/// The two halves of a click, for what is held: a finger on the widget's middle, and off again wherever that is now.
QString press(QWidget* widget);
void release(QWidget* widget);

/// Presses and releases a key that goes to the widget, if there is one; text is what the key writes.
void key(QWidget* widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, const QString& text = {});

/// Replaces the content of a spin box or line edit by typing, and leaves it with Tab.
QString type(QWidget* widget, const QString& text);

/// Lets the application work for a time, in milliseconds: timers, animations and painting go on.
void settle(int ms);

} // namespace userinput

} // namespace sim

#endif
