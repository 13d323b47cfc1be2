#ifndef SIMULATOR_FRAMEFONT_H
#define SIMULATOR_FRAMEFONT_H

#include <QWidget>

namespace sim
{

/// Gives a part of the simulator's own frame a font of that many points on the desk. A density that is set for the
/// pendant's screen leaves the frame as it is on a screen of 96 dots per inch: only what the plug-ins show is denser.
inline void setFrameFont(QWidget* widget, double points)
{
    constexpr double kDeskDensity = 96;
    const int density = qEnvironmentVariableIntValue("QT_FONT_DPI");
    QFont font = widget->font();
    font.setPointSizeF(density > 0 ? points * kDeskDensity / density : points);
    widget->setFont(font);
}

} // namespace sim

#endif
