#ifndef SIMULATOR_USERINPUT_H
#define SIMULATOR_USERINPUT_H

#include <QString>

class QWidget;

namespace sim
{

/// Mouse and keys as a person at the pendant uses them. Each returns what prevented it, empty when it went
/// through: like a finger, it reaches only what is visible and enabled.
namespace userinput
{

/// Scrolls the widget into view and clicks its middle with the left button.
QString click(QWidget* widget);

/// Replaces the content of a spin box or line edit by typing, and leaves it with Tab.
QString type(QWidget* widget, const QString& text);

/// Lets the application work for a time, in milliseconds: timers, animations and painting go on.
void settle(int ms);

} // namespace userinput

} // namespace sim

#endif
