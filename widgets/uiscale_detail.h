#ifndef WIDGETS_UISCALE_DETAIL_H
#define WIDGETS_UISCALE_DETAIL_H

class QWidget;

namespace UiScale
{

/// Squeezes the form of the welding-parameter detail page into dense rows. What lies inside
/// "frame_config_header" keeps its layout. Ignores null.
void applyWeldParamDetailPage(QWidget* page, const QWidget* w);

} // namespace UiScale

#endif
