#ifndef MIROLT_PROFILEVIEW_H
#define MIROLT_PROFILEVIEW_H

#include "mirolt/seamtracking.h"

#include <QWidget>

namespace mirolt
{

/// What the sensor sees: the laser line on the parts and a cross at the seam that was found in it; dark
/// while the sensor is off.
class ProfileView : public QWidget
{
    Q_OBJECT

public:
    ProfileView(QSharedPointer<SeamTracking> tracking, QWidget* parent);

    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// From millimetres to this widget's pixels, as large as both directions allow.
    QTransform scale() const;
    void paintGrid(QPainter* painter) const;
    void paintProfile(QPainter* painter) const;

    QSharedPointer<SeamTracking> m_tracking;
};

} // namespace mirolt

#endif
