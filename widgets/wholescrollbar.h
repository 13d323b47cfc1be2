#ifndef WIDGETS_WHOLESCROLLBAR_H
#define WIDGETS_WHOLESCROLLBAR_H

#include <QScrollBar>

/// A scroll bar that asks for all of its sheet's minimum size. A plain one forgets the border, and the area that it
/// belongs to cuts off what is drawn there.
class WholeScrollBar : public QScrollBar
{
public:
    using QScrollBar::QScrollBar;

    QSize sizeHint() const override
    {
        const QSize hint = QScrollBar::sizeHint(); // first: it polishes the bar, which sets the minimum size
        return hint.expandedTo(minimumSize());
    }
};

#endif
