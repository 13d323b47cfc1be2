// The same chart by a widely used plotting widget. Where it is missing there is nothing to compile here, and the
// benchmarks can't be built.

#if __has_include(<qcustomplot.h>)

#include "bench/charts.h"

#include <qcustomplot.h>

namespace
{

void show(QCustomPlot* plot, const ShownCurve& curve)
{
    QVector<double> keys;
    QVector<double> values;
    for (const QPointF& node : curve.nodes) {
        keys.append(node.x());
        values.append(node.y());
    }
    plot->graph(0)->setData(keys, values, true);
    const ChartAxis& x = curve.limits.x;
    const ChartAxis& y = curve.limits.y;
    const double first = x.minimum;
    const auto last = static_cast<double>(x.end());
    const CurveLine& line = curve.line;
    plot->graph(1)->setData({first, last}, {line.slope * first + line.intercept, line.slope * last + line.intercept},
                            true);
    plot->xAxis->setRange(first, last);
    plot->yAxis->setRange(y.minimum, static_cast<double>(y.end()));
    plot->xAxis->ticker().staticCast<QCPAxisTickerFixed>()->setTickStep(x.step);
    plot->yAxis->ticker().staticCast<QCPAxisTickerFixed>()->setTickStep(y.step);
    plot->xAxis->setLabel(curve.xCaption);
    plot->yAxis->setLabel(curve.yCaption);
}

} // namespace

Chart newCustomPlot(QWidget* parent)
{
    auto* plot = new QCustomPlot(parent);
    plot->setNotAntialiasedElements(QCP::aeAll);
    plot->axisRect()->setupFullAxesBox();
    const QList<QCPAxis*> axes = plot->axisRect()->axes();
    for (QCPAxis* axis : axes) {
        axis->grid()->setVisible(false);
        axis->setBasePen(QPen(Qt::black, 2));
        axis->setSubTicks(false);
        axis->setTicker(QSharedPointer<QCPAxisTickerFixed>::create());
    }
    for (QCPAxis* axis : {plot->xAxis2, plot->yAxis2}) {
        axis->setTicks(false);
    }
    for (QCPAxis* axis : {plot->xAxis, plot->yAxis}) {
        axis->setTickLabelFont(parent->font());
        axis->setLabelFont(QFont(QStringLiteral("Arial"), 10));
        axis->setNumberFormat(QStringLiteral("f"));
        axis->setNumberPrecision(0);
    }
    plot->addGraph();
    plot->graph(0)->setLineStyle(QCPGraph::lsNone);
    plot->graph(0)->setScatterStyle(QCPScatterStyle(QCPScatterStyle::ssDisc, Qt::black, 7));
    plot->addGraph();
    plot->graph(1)->setPen(QPen(Qt::black, 1));
    return {plot, [plot](const ShownCurve& curve) { show(plot, curve); },
            [plot] { plot->replot(QCustomPlot::rpImmediateRefresh); }};
}

#endif
