#ifndef PENDIX_NOUNIQUEWIDGET_H
#define PENDIX_NOUNIQUEWIDGET_H

#include <QString>

#include <functional>

class QWidget;

/// Offers a widget of a plug-in to all others, which get one with GetPluginNoUniqueWidget (pendix/hostui.h). It is
/// not unique: the factory is called for each of them and gives a new widget without a parent, which belongs
/// to whoever asked and may outlive the plug-in object. A further offer replaces the former one, an empty
/// factory takes it back; the host forgets the offer when it unloads the plug-in. Offer in init or afterInit.
void OfferNoUniqueWidget(const QString& plugin, const std::function<QWidget*()>& factory);

#endif
