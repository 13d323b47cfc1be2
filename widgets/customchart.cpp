#include "widgets/customchart.h"

#include "common/logline.h"

#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <QRegion>
#include <QTransform>

#include <tuple>
#include <utility>

namespace
{

constexpr QSize kInitialSize(380, 259);

/// Places beside the frame, in pixels.
constexpr int kTickLength = 5;
constexpr int kXLabelLead = 10;   ///< by which an x label begins before its tick
constexpr int kXBaseline = 20;    ///< of x labels and x caption, below the frame
constexpr int kYLabelLeft = 10;   ///< where y labels begin, from the left edge
constexpr int kYLabelDrop = 10;   ///< of the baseline of a y label below its tick
constexpr int kXCaptionLead = 30; ///< by which the x caption begins before the frame's right edge
constexpr QPoint kYCaption(45, 15);
constexpr int kCaptionPoints = 10;
constexpr int kLabelGap = 3; ///< least distance of labels that can be told apart

constexpr int kPointRadius = 3;
constexpr int kFramePen = 2;
constexpr int kFrameReach = kTickLength + kFramePen; ///< of frame and ticks into the plot area
constexpr int kLeastFontPixels = 8;                  ///< down to which digits can be told apart

/// Above that many pixels a picture is not kept.
constexpr double kGreatestFace = 4096.0 * 4096;

constexpr int kFewestPolylinePoints = 2;
constexpr int kMostPolylinePoints = 10;
constexpr double kPointsPerInch = 72;
constexpr double kMetresPerInch = 0.0254;

/// 10 points; fewer on a screen so dense that they would be higher than the room above the frame.
QFont captionFont(int dpi)
{
    const int points = qBound(1, static_cast<int>(kYCaption.y() * kPointsPerInch / dpi), kCaptionPoints);
    // The name as a copy on the heap: Qt's font cache keeps it beyond the life of this library.
    QFont font(QString::fromLatin1("Arial"), points);
    font.resolve(QFont::AllPropertiesResolved); // nothing of it is left to the painter's font before
    return font;
}

/// The scale of a device, if it is a whole number and all that there is to it; else 0: a picture would be blurred.
int wholeScale(const QTransform& device)
{
    const int scale = qRound(device.m11());
    return device.type() <= QTransform::TxScale && device.m11() == scale && device.m22() == scale ? qMax(scale, 0) : 0;
}

bool isFilledWith(const QColor& color, const QImage& image)
{
    QImage filled = image;
    filled.fill(color);
    return image == filled;
}

} // namespace

CustomChart::CustomChart(QWidget* parent) : QWidget(parent)
{
    if (objectName().isEmpty()) {
        setObjectName(QStringLiteral("CustomChart"));
    }
    setWindowTitle(QStringLiteral("Form"));
    resize(kInitialSize);
    setBackgroundRole(QPalette::Base);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void CustomChart::setRange(const QString& xUnit, int xStep, int xMin, int xMax, const QString& yUnit, int yStep,
                           int yMin, int yMax)
{
    m_xUnit = xUnit;
    m_x = {xStep, xMin, xMax};
    m_yUnit = yUnit;
    m_y = {yStep, yMin, yMax};
}

void CustomChart::setLine(const double& slope, const double& intercept)
{
    m_slope = slope;
    m_intercept = intercept;
    m_hasLine = true;
}

void CustomChart::setTips(const QString& xCaption, const QString& yCaption)
{
    m_xCaption = xCaption;
    m_yCaption = yCaption;
}

void CustomChart::setPoints(QList<QPointF> points)
{
    if (!m_points.isSharedWith(points)) {
        m_points = std::move(points);
    }
}

void CustomChart::setPolyline(const QList<QPointF>& points)
{
    if (points.size() < kFewestPolylinePoints || points.size() > kMostPolylinePoints) {
        logLine(LogLevel::Warning) << "setPolyline: Number of points must be between 2 and 10." << points.size();
        return;
    }
    m_polyline = points;
    update();
}

bool CustomChart::Look::operator==(const Look& other) const
{
    const auto parts = [](const Look& look) {
        return std::tie(look.size, look.scale, look.dpi, look.font, look.background, look.x, look.y, look.xUnit,
                        look.yUnit, look.xCaption, look.yCaption);
    };
    return parts(*this) == parts(other);
}

CustomChart::Look CustomChart::look(int scale) const
{
    QColor background = palette().color(backgroundRole());
    background.setAlpha(255); // who paints an opaque widget leaves nothing of what was there before
    const bool isKept = static_cast<double>(width()) * height() * scale * scale <= kGreatestFace;
    return {size(),  isKept ? scale : 0, logicalDpiX(), font(), background, m_x, m_y, m_xUnit,
            m_yUnit, m_xCaption,         m_yCaption};
}

void CustomChart::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const ChartGeometry geometry(size(), m_x, m_y);
    const Look wanted = look(wholeScale(painter.deviceTransform()));
    if (!(wanted == m_faceLook)) {
        m_faceLook = wanted;
        m_face = {};
    } else if (m_face.isNull() && wanted.scale > 0) {
        makeFace(geometry); // not before it is of use: a chart that is being resized never needs it
    }
    if (m_face.isNull()) {
        painter.fillRect(rect(), wanted.background);
        paintFace(&painter, geometry);
    } else {
        showFace(&painter);
    }
    paintData(&painter, geometry);
}

void CustomChart::makeFace(const ChartGeometry& geometry)
{
    QImage image(m_faceLook.size * m_faceLook.scale, QImage::Format_RGB32);
    if (image.isNull()) {
        return;
    }
    // The points of its fonts are the chart's: an image is taken for one of the primary screen.
    image.setDotsPerMeterX(qRound(m_faceLook.dpi / kMetresPerInch));
    image.setDotsPerMeterY(qRound(logicalDpiY() / kMetresPerInch));
    image.setDevicePixelRatio(m_faceLook.scale);
    image.fill(m_faceLook.background);
    QPainter painter(&image);
    paintFace(&painter, geometry);
    painter.end();
    const QRect inside(QPoint(geometry.left() + kFrameReach, geometry.top() + kFrameReach),
                       QPoint(geometry.right() - kFrameReach, geometry.bottom() - kFrameReach));
    const QRect devicePixels(inside.topLeft() * m_faceLook.scale, inside.size() * m_faceLook.scale);
    m_blank = inside.isValid() && isFilledWith(m_faceLook.background, image.copy(devicePixels)) ? inside : QRect();
    m_face = QPixmap::fromImage(std::move(image));
}

void CustomChart::showFace(QPainter* painter) const
{
    painter->fillRect(m_blank, m_faceLook.background); // takes half as long as copying it
    const QRegion copied = QRegion(rect()) - m_blank;
    for (const QRect& part : copied) {
        painter->drawPixmap(part, m_face, QRect(part.topLeft() * m_faceLook.scale, part.size() * m_faceLook.scale));
    }
}

void CustomChart::paintFace(QPainter* painter, const ChartGeometry& geometry) const
{
    if (!geometry.hasFrame()) {
        return;
    }
    painter->setLayoutDirection(Qt::LeftToRight); // numbers, whatever the language
    painter->setPen(QPen(Qt::black, kFramePen));
    const QPoint lowerLeft(geometry.left(), geometry.bottom());
    const QPoint lowerRight(geometry.right(), geometry.bottom());
    const QPoint upperLeft(geometry.left(), geometry.top());
    const QPoint upperRight(geometry.right(), geometry.top());
    painter->drawLine(lowerLeft, lowerRight);
    painter->drawLine(upperLeft, lowerLeft);
    painter->drawLine(upperLeft, upperRight);
    painter->drawLine(upperRight, lowerRight);
    if (!geometry.hasScale()) {
        return;
    }
    paintAxes(painter, geometry);
    const QFont font = captionFont(logicalDpiY());
    painter->setFont(font);
    const QPoint xCaption(geometry.right() - kXCaptionLead, geometry.bottom() + kXBaseline);
    const QFontMetrics metrics(font, this);
    painter->drawText(xCaption, metrics.elidedText(m_xCaption, Qt::ElideRight, width() - xCaption.x()));
    painter->drawText(kYCaption, m_yCaption);
}

void CustomChart::paintAxes(QPainter* painter, const ChartGeometry& geometry) const
{
    painter->setFont(font());
    const int bottom = geometry.bottom();
    for (const ChartGeometry::Tick& tick : geometry.xTicks()) {
        painter->drawLine(tick.position, bottom - kTickLength, tick.position, bottom);
        painter->drawText(tick.position - kXLabelLead, bottom + kXBaseline, QString::number(tick.value) + m_xUnit);
    }
    const int left = geometry.left();
    for (const ChartGeometry::Tick& tick : geometry.yTicks()) {
        painter->drawLine(left, tick.position, left + kTickLength, tick.position);
        painter->drawText(kYLabelLeft, tick.position + kYLabelDrop, QString::number(tick.value) + m_yUnit);
    }
}

void CustomChart::paintData(QPainter* painter, const ChartGeometry& geometry) const
{
    painter->setPen(QPen(Qt::black, 1));
    painter->setBrush(Qt::black);
    for (const QPointF& point : m_points) {
        if (const auto centre = geometry.position(point)) {
            painter->drawEllipse(centre->x() - kPointRadius, centre->y() - kPointRadius, 2 * kPointRadius,
                                 2 * kPointRadius);
        }
    }
    if (const auto line = geometry.line(m_slope, m_intercept)) {
        painter->drawLine(*line);
    }
}

bool CustomChart::labelsFit(const ChartGeometry& geometry, const QFont& font, bool besideCaption) const
{
    const QFontMetrics metrics(font, this);
    int free = kYLabelLeft; // where the next x label may begin, from the left edge
    for (const ChartGeometry::Tick& tick : geometry.xTicks()) {
        const int begin = tick.position - kXLabelLead;
        if (begin < free) {
            return false;
        }
        free = begin + metrics.horizontalAdvance(QString::number(tick.value) + m_xUnit) + kLabelGap;
    }
    if (besideCaption && free > geometry.right() - kXCaptionLead) {
        return false;
    }
    const QVector<ChartGeometry::Tick> yTicks = geometry.yTicks();
    for (int i = 0; i < yTicks.size(); ++i) {
        const int width = metrics.horizontalAdvance(QString::number(yTicks.at(i).value) + m_yUnit);
        const bool isClose = i > 0 && yTicks.at(i - 1).position - yTicks.at(i).position < metrics.ascent();
        if (isClose || kYLabelLeft + width > geometry.left() - kFramePen) {
            return false;
        }
    }
    return true;
}

QFont CustomChart::fittedFont(const QFont& wanted) const
{
    const ChartGeometry geometry(size(), m_x, m_y);
    const int leastPoints = qRound(kLeastFontPixels * kPointsPerInch / logicalDpiY());
    QFont fitted = wanted;
    for (const bool besideCaption : {true, false}) {
        for (int points = wanted.pointSize(); geometry.hasScale() && points >= leastPoints; --points) {
            fitted.setPointSize(points);
            if (labelsFit(geometry, fitted, besideCaption)) {
                return fitted;
            }
        }
    }
    return fitted;
}
