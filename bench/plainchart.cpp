// A chart that is painted plainly: each step of the picture each time, with no thought of what was painted before.

#include "bench/charts.h"

#include <QPainter>
#include <QWidget>

#include <cmath>

namespace
{

class PlainChart : public QWidget
{
public:
    explicit PlainChart(QWidget* parent) : QWidget(parent)
    {
        setBackgroundRole(QPalette::Base);
        setAutoFillBackground(true);
    }

    void set(const ShownCurve& curve) { m_curve = curve; }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        QPainter painter(this);
        placeAxes();
        paintFrame(&painter);
        paintTicks(&painter);
        paintNodesAndLine(&painter);
        painter.setFont(QFont(QStringLiteral("Arial"), 10));
        painter.drawText(m_right - 30, m_bottom + 20, m_curve.xCaption);
        painter.drawText(45, 15, m_curve.yCaption);
    }

private:
    static double lengthOf(const ChartAxis& axis) { return static_cast<double>(axis.end() - axis.minimum); }

    void placeAxes()
    {
        m_right = width() - 20;
        m_bottom = height() - 25;
        m_xScale = (m_right - kLeft) / lengthOf(m_curve.limits.x);
        m_yScale = (m_bottom - kTop) / lengthOf(m_curve.limits.y);
    }

    int xOf(double value) const
    {
        return kLeft + static_cast<int>(std::round((value - m_curve.limits.x.minimum) * m_xScale));
    }

    int yOf(double value) const
    {
        return m_bottom - static_cast<int>(std::round((value - m_curve.limits.y.minimum) * m_yScale));
    }

    void paintFrame(QPainter* painter) const
    {
        painter->setPen(QPen(Qt::black, 2));
        painter->drawLine(kLeft, m_bottom, m_right, m_bottom);
        painter->drawLine(kLeft, kTop, kLeft, m_bottom);
        painter->drawLine(kLeft, kTop, m_right, kTop);
        painter->drawLine(m_right, kTop, m_right, m_bottom);
    }

    void paintTicks(QPainter* painter) const
    {
        const ChartAxis& x = m_curve.limits.x;
        for (int value = x.minimum; value < x.end(); value += x.step) {
            painter->drawLine(xOf(value), m_bottom - 5, xOf(value), m_bottom);
            painter->drawText(xOf(value) - 10, m_bottom + 20, QString::number(value));
        }
        const ChartAxis& y = m_curve.limits.y;
        for (int value = y.minimum; value <= y.end(); value += y.step) {
            painter->drawLine(kLeft, yOf(value), kLeft + 5, yOf(value));
            painter->drawText(10, yOf(value) + 10, QString::number(value));
        }
    }

    void paintNodesAndLine(QPainter* painter) const
    {
        painter->setPen(QPen(Qt::black, 1));
        painter->setBrush(Qt::black);
        for (const QPointF& node : m_curve.nodes) {
            painter->drawEllipse(xOf(node.x()) - 3, yOf(node.y()) - 3, 6, 6);
        }
        const double first = m_curve.limits.x.minimum;
        const double last = first + lengthOf(m_curve.limits.x);
        const CurveLine& line = m_curve.line;
        painter->drawLine(xOf(first), yOf(line.slope * first + line.intercept), xOf(last),
                          yOf(line.slope * last + line.intercept));
    }

    static constexpr int kLeft = 50;
    static constexpr int kTop = 20;
    ShownCurve m_curve;
    int m_right = 0;
    int m_bottom = 0;
    double m_xScale = 0; // pixels per unit
    double m_yScale = 0;
};

} // namespace

Chart newPlainChart(QWidget* parent)
{
    auto* chart = new PlainChart(parent);
    return {chart, [chart](const ShownCurve& curve) { chart->set(curve); }, [chart] { chart->repaint(); }};
}
