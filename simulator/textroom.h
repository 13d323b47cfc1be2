#ifndef SIMULATOR_TEXTROOM_H
#define SIMULATOR_TEXTROOM_H

#include <QSize>
#include <QString>
#include <QVector>

class QWidget;

namespace sim
{

/// A text or picture that a widget shows, what it takes up and what the widget's style leaves for it, in pixels.
struct TextRoom {
    QString text; ///< empty for a picture
    QSize needed;
    QSize room;

    bool isEnough() const { return needed.width() <= room.width() && needed.height() <= room.height(); }
};

/// Every text that a visible widget shows or may come to show, in the font that its style sheets leave it: a spin box
/// holds both ends of its range, a combo box each of its entries unless it can be typed into or takes its width from
/// something else, as for names that are data. What an operator has typed
/// does not count, as it scrolls while it is typed. Empty for widgets without text.
QVector<TextRoom> textRooms(const QWidget* widget);

} // namespace sim

#endif
