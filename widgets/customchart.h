#ifndef WIDGETS_CUSTOMCHART_H
#define WIDGETS_CUSTOMCHART_H

#include "widgets/chartgeometry.h"

#include <QColor>
#include <QFont>
#include <QList>
#include <QPixmap>
#include <QPointF>
#include <QRect>
#include <QString>
#include <QWidget>

/// A plot of measured nodes as dots and of the straight line through them, in a frame with ticks in whole units and
/// two captions. What is set is seen at the next repaint, which the caller asks for with update(). A range that can't
/// be stepped gives the empty frame; what is no number, or too far away, is left out.
class CustomChart : public QWidget
{
    Q_OBJECT

public:
    explicit CustomChart(QWidget* parent = nullptr);

    /// Both axes: unit behind every tick label, distance of the ticks, least and greatest value.
    void setRange(const QString& xUnit, int xStep, int xMin, int xMax, const QString& yUnit, int yStep, int yMin,
                  int yMax);

    /// The line y = slope * x + intercept. One whose slope is 1e-6 or less, up or down, is not drawn.
    void setLine(const double& slope, const double& intercept);
    bool hasLine() const { return m_hasLine; } ///< Whether a line was ever set.

    /// The x caption is cut short, with three dots, at the right edge.
    void setTips(const QString& xCaption, const QString& yCaption);

    /// The nodes, in the units of the axes.
    void setPoints(QList<QPointF> points);

    /// 2 to 10 points, which are kept but not drawn; another number leaves the former ones, with a warning in the log.
    void setPolyline(const QList<QPointF>& points);

    /// The font that is asked for, or the greatest smaller one, down to 8 pixels, with which the tick labels keep off
    /// each other, the frame and, if any font can make them, the x caption. The least one when none does.
    QFont fittedFont(const QFont& wanted) const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// Everything that the part of the picture without nodes and line depends on.
    struct Look {
        QSize size;
        int scale = 0; ///< of the device: its pixels for one of ours; 0: no picture is kept
        int dpi = 0;
        QFont font;
        QColor background;
        ChartAxis x;
        ChartAxis y;
        QString xUnit;
        QString yUnit;
        QString xCaption;
        QString yCaption;

        bool operator==(const Look& other) const;
    };

    Look look(int scale) const;
    void paintFace(QPainter* painter, const ChartGeometry& geometry) const;
    void paintAxes(QPainter* painter, const ChartGeometry& geometry) const;
    void paintData(QPainter* painter, const ChartGeometry& geometry) const;
    void makeFace(const ChartGeometry& geometry);
    void showFace(QPainter* painter) const;
    bool labelsFit(const ChartGeometry& geometry, const QFont& font, bool besideCaption) const;

    ChartAxis m_x;
    ChartAxis m_y;
    QString m_xUnit;
    QString m_yUnit;
    QString m_xCaption;
    QString m_yCaption;
    QList<QPointF> m_points;
    QList<QPointF> m_polyline;
    double m_slope = 0;
    double m_intercept = 0;
    bool m_hasLine = false;
    Look m_faceLook; ///< of the last paint
    QPixmap m_face;  ///< the picture of that without nodes and line, opaque; null until it looks the same once more
    QRect m_blank;   ///< the part of m_face that shows nothing but the background, in our pixels
};

#endif
