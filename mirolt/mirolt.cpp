#include "mirolt/mirolt.h"

#include "mirolt/trackingpage.h"

#include "pendix/hostui.h"
#include "pendix/nouniquewidget.h"

namespace mirolt
{

Mirolt::Mirolt(QObject* parent) : PluginBase(parent), m_tracking(QSharedPointer<SeamTracking>::create())
{
    setPluginLabel(tr("Seam Tracking"));
}

void Mirolt::init()
{
    CreateCenterWidget(QString::fromLatin1(kPlugin), new TrackingPage(m_tracking));
}

void Mirolt::afterInit()
{
    OfferNoUniqueWidget(QString::fromLatin1(kPlugin), [tracking = m_tracking] { return new TrackingPage(tracking); });
}

} // namespace mirolt
