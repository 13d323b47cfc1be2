#include "widgets/chartgeometry.h"

#include <algorithm>
#include <cmath>

namespace
{

/// Between the edges of the chart and those of the plot area, in pixels.
constexpr int kLeftMargin = 50;
constexpr int kTopMargin = 20;
constexpr int kRightMargin = 19;
constexpr int kBottomMargin = 24;

constexpr double kFarthest = 32767; ///< in pixels; what a painter is sure to reach
constexpr double kLevel = 1e-6;     ///< up to this slope a line counts as level

/// The ticks of an axis that is drawn on a number of pixels, as distances from its minimum.
QVector<ChartGeometry::Tick> ticksOf(const ChartAxis& axis, double pixelsPerUnit, bool endHasTick)
{
    const qint64 count = (axis.end() - axis.minimum) / axis.step + (endHasTick ? 1 : 0);
    const double pitch = axis.step * pixelsPerUnit;
    QVector<ChartGeometry::Tick> ticks;
    qint64 next = 0;
    for (qint64 k = 0; k < count; k = next) {
        const int distance = static_cast<int>(std::round(static_cast<double>(k * axis.step) * pixelsPerUnit));
        if (ticks.isEmpty() || ticks.constLast().position != distance) {
            ticks.append({axis.minimum + k * axis.step, distance});
        }
        // Where ticks are closer than pixels, those that would fall on this pixel once more are left out.
        const auto onNextPixel = static_cast<qint64>(std::ceil((distance + 0.5) / pitch));
        next = std::max(k + 1, onNextPixel);
    }
    return ticks;
}

} // namespace

qint64 ChartAxis::end() const
{
    if (!canBeStepped()) {
        return minimum;
    }
    const qint64 span = static_cast<qint64>(maximum) - minimum;
    return minimum + (span + step - 1) / step * step;
}

ChartGeometry::ChartGeometry(const QSize& chart, const ChartAxis& x, const ChartAxis& y)
    : m_chart(chart), m_x(x), m_y(y)
{
    if (hasFrame() && x.canBeStepped() && y.canBeStepped()) {
        m_xScale = (right() - left()) / static_cast<double>(x.end() - x.minimum);
        m_yScale = (bottom() - top()) / static_cast<double>(y.end() - y.minimum);
    }
}

bool ChartGeometry::hasFrame() const
{
    return right() > left() && bottom() > top();
}

bool ChartGeometry::hasScale() const
{
    return m_xScale > 0;
}

int ChartGeometry::left() const
{
    return kLeftMargin;
}

int ChartGeometry::right() const
{
    return m_chart.width() - 1 - kRightMargin;
}

int ChartGeometry::top() const
{
    return kTopMargin;
}

int ChartGeometry::bottom() const
{
    return m_chart.height() - 1 - kBottomMargin;
}

QVector<ChartGeometry::Tick> ChartGeometry::xTicks() const
{
    QVector<Tick> ticks = hasScale() ? ticksOf(m_x, m_xScale, false) : QVector<Tick>();
    for (Tick& tick : ticks) {
        tick.position = left() + tick.position;
    }
    return ticks;
}

QVector<ChartGeometry::Tick> ChartGeometry::yTicks() const
{
    QVector<Tick> ticks = hasScale() ? ticksOf(m_y, m_yScale, true) : QVector<Tick>();
    for (Tick& tick : ticks) {
        tick.position = bottom() - tick.position;
    }
    return ticks;
}

std::optional<QPoint> ChartGeometry::position(const QPointF& value) const
{
    if (!hasScale()) {
        return {};
    }
    const double x = left() + std::round((value.x() - m_x.minimum) * m_xScale);
    const double y = bottom() - std::round((value.y() - m_y.minimum) * m_yScale);
    const bool isInReach = std::abs(x) <= kFarthest && std::abs(y) <= kFarthest; // false for what is no number
    return isInReach ? std::optional<QPoint>(QPoint(static_cast<int>(x), static_cast<int>(y))) : std::nullopt;
}

/// An end of a line, moved along the line onto the edges that it is beyond.
QPointF ChartGeometry::movedInside(QPointF end, double slope, double intercept) const
{
    const double yLow = m_y.minimum;
    const auto yHigh = static_cast<double>(m_y.end());
    const double xLow = m_x.minimum;
    const auto xHigh = static_cast<double>(m_x.end());
    if (end.y() < yLow) {
        end = {(yLow - intercept) / slope, yLow};
    }
    if (end.y() > yHigh) {
        end = {(yHigh - intercept) / slope, yHigh};
    }
    if (end.x() < xLow) {
        end = {xLow, slope * xLow + intercept};
    }
    if (end.x() > xHigh) {
        end = {xHigh, slope * xHigh + intercept};
    }
    return end;
}

std::optional<QLine> ChartGeometry::line(double slope, double intercept) const
{
    if (!std::isfinite(slope) || !std::isfinite(intercept) || std::abs(slope) <= kLevel) {
        return {};
    }
    const double xLow = m_x.minimum;
    const auto xHigh = static_cast<double>(m_x.end());
    const auto start = position(movedInside({xLow, slope * xLow + intercept}, slope, intercept));
    const auto finish = position(movedInside({xHigh, slope * xHigh + intercept}, slope, intercept));
    // Judged in pixels: what an end is beside its edge by rounding does not make a line miss the frame.
    const QRect inside(QPoint(left(), top()), QPoint(right(), bottom()));
    if (!start || !finish || !inside.contains(*start) || !inside.contains(*finish)) {
        return {};
    }
    return QLine(*start, *finish);
}
