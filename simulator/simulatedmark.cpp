#include "simulator/simulatedmark.h"

#include "simulator/framefont.h"

#include <QPainter>

namespace sim
{

namespace
{
const QColor kAmber(255, 191, 0);
constexpr int kStripe = 22;
constexpr int kTextMargin = 16;
} // namespace

SimulatedMark::SimulatedMark(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("simulatedMark"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    QFont bold = font();
    bold.setBold(true);
    setFont(bold);
    setFrameFont(this, font().pointSize() + 2);
    const QString text = tr("SIMULATED - no robot, no laser");
    setAccessibleName(text);
}

QSize SimulatedMark::sizeHint() const
{
    return {fontMetrics().horizontalAdvance(accessibleName()) + 4 * kStripe, fontMetrics().height() + 10};
}

void SimulatedMark::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), kAmber);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    for (int x = -height(); x < width(); x += 2 * kStripe) {
        const QPoint corners[] = {
            {x, height()}, {x + kStripe, height()}, {x + kStripe + height(), 0}, {x + height(), 0}};
        painter.drawConvexPolygon(corners, 4);
    }
    const int textWidth = painter.fontMetrics().horizontalAdvance(accessibleName()) + 2 * kTextMargin;
    const QRect plate((width() - textWidth) / 2, 2, textWidth, height() - 4);
    painter.fillRect(plate, Qt::black);
    painter.setPen(kAmber);
    painter.drawText(plate, Qt::AlignCenter, accessibleName());
}

} // namespace sim
