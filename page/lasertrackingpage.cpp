#include "page/lasertrackingpage.h"

#include "widgets/uiscale.h"

LaserTrackingPage::LaserTrackingPage(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("LaserTrackingPage"));
    initStyle();
}

void LaserTrackingPage::initStyle()
{
    UiScale::applyExpandingPage(this);
}
