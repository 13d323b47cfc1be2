#ifndef SIMULATOR_WIDGETEXCHANGE_H
#define SIMULATOR_WIDGETEXCHANGE_H

#include <QString>

class QWidget;

namespace sim
{

/// What a plug-in that asks for another one's widget is answered.
struct WidgetAnswer {
    int code = 0; ///< 0 a widget, -1 the other plug-in is not loaded, -2 it offers none or failed to make it
    QWidget* widget = nullptr; ///< new, without a parent, the asker's; only with code 0
    QString words;             ///< the answer for a person
    QString fault;             ///< what the offering plug-in did wrong; empty: nothing
};

/// Makes a widget of the plug-in through what it offers with OfferNoUniqueWidget. Throws nothing.
WidgetAnswer noUniqueWidget(const QString& plugin);

} // namespace sim

#endif
