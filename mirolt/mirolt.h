#ifndef MIROLT_MIROLT_H
#define MIROLT_MIROLT_H

#include "mirolt/seamtracking.h"

#include "pendix/pluginbase.h"

namespace mirolt
{

/// The plug-in object of seam tracking. It has a page of its own and offers further ones to other plug-ins; all
/// of them show and change the same tracking.
class Mirolt : public pendix::PluginBase
{
    Q_OBJECT

public:
    explicit Mirolt(QObject* parent);

    /// Gives the host the page.
    void init() override;
    /// Offers pages to the other plug-ins.
    void afterInit() override;

private:
    /// Shared with the pages: one that another plug-in keeps may outlive this object.
    QSharedPointer<SeamTracking> m_tracking;
};

} // namespace mirolt

#endif
