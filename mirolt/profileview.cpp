#include "mirolt/profileview.h"

#include <QPainter>

namespace mirolt
{

namespace
{

// A sensor's picture looks like this on every pendant, whatever the theme around it.
const QColor kBackground(0x10, 0x18, 0x20);
const QColor kGrid(0x2c, 0x3a, 0x46);
const QColor kText(0xc8, 0xd2, 0xda);
const QColor kLaser(0xff, 0x5a, 0x4d);
const QColor kSeam(0x5d, 0xe0, 0x8a);

constexpr int kGridStep = 2; // mm

} // namespace

ProfileView::ProfileView(QSharedPointer<SeamTracking> tracking, QWidget* parent)
    : QWidget(parent), m_tracking(std::move(tracking))
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAttribute(Qt::WA_OpaquePaintEvent);
    connect(m_tracking.data(), &SeamTracking::changed, this, qOverload<>(&QWidget::update));
    connect(m_tracking.data(), &SeamTracking::measured, this, qOverload<>(&QWidget::update));
}

QSize ProfileView::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 12, fontMetrics().height() * 4};
}

QTransform ProfileView::scale() const
{
    const double perMm = qMin(width() / (2 * kHalfWidth), height() / (2 * kHalfHeight));
    return QTransform(perMm, 0, 0, -perMm, width() / 2.0, height() / 2.0);
}

void ProfileView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), kBackground);
    painter.setRenderHint(QPainter::Antialiasing);
    paintGrid(&painter);
    if (m_tracking->settings().sensorOn) {
        paintProfile(&painter);
    } else {
        painter.setPen(kText);
        painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, tr("Sensor off"));
    }
}

void ProfileView::paintGrid(QPainter* painter) const
{
    const QTransform toPixels = scale();
    // Also beside what the sensor sees, so that the picture fills the widget.
    const QRectF seen = toPixels.inverted().mapRect(QRectF(rect()));
    painter->setPen(kGrid);
    for (int x = qRound(seen.left()) / kGridStep * kGridStep; x <= seen.right(); x += kGridStep) {
        painter->drawLine(toPixels.map(QLineF(x, seen.top(), x, seen.bottom())));
    }
    for (int y = qRound(seen.top()) / kGridStep * kGridStep; y <= seen.bottom(); y += kGridStep) {
        painter->drawLine(toPixels.map(QLineF(seen.left(), y, seen.right(), y)));
    }
    const int margin = fontMetrics().height() / 3;
    painter->setPen(kText);
    painter->drawText(rect().adjusted(margin, margin, -margin, -margin), Qt::AlignRight | Qt::AlignBottom,
                      tr("%1 mm grid").arg(kGridStep));
}

void ProfileView::paintProfile(QPainter* painter) const
{
    const SeamProfile profile = m_tracking->profile();
    const QTransform toPixels = scale();
    const double thick = qMax(1.5, fontMetrics().height() / 9.0);
    painter->setPen(QPen(kLaser, thick));
    painter->drawPolyline(toPixels.map(profile.line));
    const QPointF seam = toPixels.map(profile.seam);
    const double arm = fontMetrics().height() * 0.7;
    painter->setPen(QPen(kSeam, thick));
    painter->drawLine(QLineF(seam.x() - arm, seam.y(), seam.x() + arm, seam.y()));
    painter->drawLine(QLineF(seam.x(), seam.y() - arm, seam.x(), seam.y() + arm));
    painter->drawEllipse(seam, arm / 2, arm / 2);
}

} // namespace mirolt
