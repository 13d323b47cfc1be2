#ifndef WIDGETS_CHARTGEOMETRY_H
#define WIDGETS_CHARTGEOMETRY_H

#include <QLine>
#include <QPoint>
#include <QPointF>
#include <QRect>
#include <QSize>
#include <QVector>

#include <optional>

/// One axis of a chart, in whole units of what it shows. Any values may be given: an axis whose minimum is not below
/// its maximum, or whose step is below 1, can't be stepped and has no scale.
struct ChartAxis {
    int step = 1;
    int minimum = 0;
    int maximum = 10;

    bool canBeStepped() const { return step > 0 && minimum < maximum; }

    /// The first value from the minimum on in whole steps that is not below the maximum; the minimum if the axis can't
    /// be stepped.
    qint64 end() const;

    bool operator==(const ChartAxis& other) const
    {
        return step == other.step && minimum == other.minimum && maximum == other.maximum;
    }
};

/// Where things stand in a chart of a given size, in pixels from its upper left corner. Total: no size, axis or value
/// makes it divide by zero, overflow or go on for long.
class ChartGeometry
{
public:
    struct Tick {
        qint64 value;
        int position; ///< of its centre along the axis, in pixels
    };

    ChartGeometry(const QSize& chart, const ChartAxis& x, const ChartAxis& y);

    /// Whether there is room for a frame with anything in it.
    bool hasFrame() const;

    /// Whether values have a place: there is a frame, and both axes can be stepped.
    bool hasScale() const;

    /// The edges of the plot area.
    int left() const;
    int right() const;
    int top() const;
    int bottom() const;

    /// The ticks of an axis from its minimum on, at most one for each pixel; none without a scale. The x axis has none
    /// at its end.
    QVector<Tick> xTicks() const;
    QVector<Tick> yTicks() const;

    /// Where a value is drawn, inside the frame or out of it; nothing without a scale, for what is no number, and for
    /// what is farther than a painter reaches.
    std::optional<QPoint> position(const QPointF& value) const;

    /// The part of the line y = slope * x + intercept that is inside the frame; nothing if it is level or misses the
    /// frame.
    std::optional<QLine> line(double slope, double intercept) const;

private:
    QPointF movedInside(QPointF end, double slope, double intercept) const;

    QSize m_chart;
    ChartAxis m_x;
    ChartAxis m_y;
    double m_xScale = 0; ///< pixels per unit; 0 without a scale
    double m_yScale = 0;
};

#endif
