#ifndef SIMULATOR_ITEMROOMS_H
#define SIMULATOR_ITEMROOMS_H

#include "simulator/textroom.h"

namespace sim
{

/// The texts of widgets that show many side by side, see textRooms(). Each takes a widget of the class in its name, the
/// last one any item view; of a header and a view only what is not hidden or scrolled away counts.
QVector<TextRoom> tabBarRooms(const QWidget* widget);
QVector<TextRoom> headerRooms(const QWidget* widget);
QVector<TextRoom> cellRooms(const QWidget* widget);

} // namespace sim

#endif
