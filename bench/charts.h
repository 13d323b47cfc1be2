#ifndef BENCH_CHARTS_H
#define BENCH_CHARTS_H

#include "page/curves/curvenodes.h"

#include <QList>
#include <QPointF>
#include <QString>

#include <functional>

class QWidget;

/// What ours is measured against: charts that show the same.

/// What a chart shows.
struct ShownCurve {
    QList<QPointF> nodes;
    CurveLine line; ///< that meets the left and the right side of the frame
    CurveLimits limits;
    QString xCaption;
    QString yCaption;
};

/// A chart in a window. Its functions live as long as the widget, which belongs to its parent.
struct Chart {
    QWidget* widget = nullptr;
    std::function<void(const ShownCurve& curve)> set;
    std::function<void()> paint; ///< at once, whether or not something has changed
};

/// One that paints all of its picture, which is the same as ours to the pixel, each time.
Chart newPlainChart(QWidget* parent);

/// QCustomPlot's, dressed like ours as far as it goes.
Chart newCustomPlot(QWidget* parent);

#endif
