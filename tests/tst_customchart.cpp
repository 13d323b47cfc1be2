// The chart: where values, ticks and lines stand, and what is painted there.
#include "tests/fakehost.h"
#include "widgets/customchart.h"

#include <QEvent>
#include <QImage>
#include <QPainter>
#include <QTest>

#include <cmath>
#include <functional>
#include <limits>

using Change = std::function<void(CustomChart*)>;
Q_DECLARE_METATYPE(Change)

namespace
{

constexpr int kMost = std::numeric_limits<int>::max();
constexpr int kLeast = std::numeric_limits<int>::min();
const double kInf = std::numeric_limits<double>::infinity();
const double kNan = std::numeric_limits<double>::quiet_NaN();

/// A plot area of 300 by 200 pixels, from (50, 20) to (350, 220).
constexpr QSize kChart(370, 245);

QImage pictureOf(CustomChart* chart)
{
    return chart->grab().toImage().convertToFormat(QImage::Format_RGB32);
}

bool isBlack(const QImage& picture, int x, int y)
{
    return picture.pixelColor(x, y) == Qt::black;
}

/// Whether anything is painted in a rectangle.
bool isPainted(const QImage& picture, const QRect& area)
{
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (picture.pixelColor(x, y) != Qt::white) {
                return true;
            }
        }
    }
    return false;
}

void fill(CustomChart* chart)
{
    chart->resize(kChart);
    chart->setRange("u", 3, 0, 10, "v", 20, -20, 80);
    chart->setPoints({{0, 0}, {6, 40}});
    chart->setLine(10, -5);
    chart->setTips("port", "value");
}

QString words(const QVector<ChartGeometry::Tick>& ticks)
{
    QStringList all;
    for (const ChartGeometry::Tick& tick : ticks) {
        all.append(QStringLiteral("%1@%2").arg(tick.value).arg(tick.position));
    }
    return all.join(' ');
}

} // namespace

class TestCustomChart : public QObject
{
    Q_OBJECT

private slots:
    void ticks_data();
    void ticks();
    void narrowTicks();
    void positions();
    void lines_data();
    void lines();
    void noScale();
    void painted();
    void paintedBesideItsFrame();
    void seenAtOnce_data();
    void seenAtOnce();
    void scaled();
    void huge();
    void polyline();
    void fontThatFits();
};

void TestCustomChart::ticks_data()
{
    QTest::addColumn<QVector<int>>("x"); // step, minimum, maximum
    QTest::addColumn<QVector<int>>("y");
    QTest::addColumn<QString>("xTicks");
    QTest::addColumn<QString>("yTicks");
    QTest::newRow("end beyond the maximum")
        << QVector<int>{3, 0, 10} << QVector<int>{20, 0, 100} << "0@50 3@125 6@200 9@275"
        << "0@220 20@180 40@140 60@100 80@60 100@20";
    QTest::newRow("from below zero, halves up") << QVector<int>{10, -5, 15} << QVector<int>{3, -3, 5} << "-5@50 5@200"
                                                << "-3@220 0@153 3@87 6@20";
    QTest::newRow("all of int") << QVector<int>{kMost, kLeast, kMost} << QVector<int>{kMost, 0, kMost}
                                << "-2147483648@50 -1@150 2147483646@250"
                                << "0@220 2147483647@20";
}

void TestCustomChart::ticks()
{
    QFETCH(QVector<int>, x);
    QFETCH(QVector<int>, y);
    const ChartGeometry geometry(kChart, {x[0], x[1], x[2]}, {y[0], y[1], y[2]});
    QTEST(words(geometry.xTicks()), "xTicks");
    QTEST(words(geometry.yTicks()), "yTicks");
}

void TestCustomChart::narrowTicks()
{
    for (int step = 1; step < 100000; step += 997) {
        const ChartGeometry geometry(kChart, {step, kLeast, kMost}, {step, 0, 400000});
        const QVector<ChartGeometry::Tick> ticks = geometry.xTicks();
        QCOMPARE(ticks.size(), 301);
        for (int i = 0; i < ticks.size(); ++i) {
            QCOMPARE(ticks[i].position, 50 + i);
            QCOMPARE(geometry.position({static_cast<double>(ticks[i].value), 0})->x(), 50 + i);
        }
    }
}

void TestCustomChart::positions()
{
    const ChartGeometry geometry(kChart, {3, 0, 10}, {20, 0, 100}); // 25 and 2 pixels for one unit
    QCOMPARE(*geometry.position({12, 100}), QPoint(350, 20));
    QCOMPARE(*geometry.position({0.02, 0.25}), QPoint(51, 219)); // halves away from zero
    QCOMPARE(*geometry.position({-0.02, -0.25}), QPoint(49, 221));
    QCOMPARE(*geometry.position({20, 150}), QPoint(550, -80)); // outside
    QCOMPARE(*geometry.position({(32767.0 - 50) / 25, 0}), QPoint(32767, 220));
    for (const QPointF& nowhere : {QPointF(kNan, 0), QPointF(0, -kInf), QPointF(32718.0 / 25, 0), QPointF(0, 1e300)}) {
        QVERIFY(!geometry.position(nowhere));
    }
}

void TestCustomChart::lines_data()
{
    QTest::addColumn<double>("slope");
    QTest::addColumn<double>("intercept");
    QTest::addColumn<QLine>("line"); // null: not drawn
    QTest::newRow("inside") << 5.0 << 10.0 << QLine(50, 200, 350, 80);
    QTest::newRow("out through top and bottom") << 20.0 << -40.0 << QLine(100, 220, 225, 20);
    QTest::newRow("falling") << -20.0 << 140.0 << QLine(100, 20, 225, 220);
    QTest::newRow("steep") << 1e300 << -6e300 << QLine(200, 220, 200, 20);
    QTest::newRow("above") << 1.0 << 101.0 << QLine();
    QTest::newRow("below") << 1.0 << -13.0 << QLine();
    QTest::newRow("right of it") << 10.0 << -130.0 << QLine();
    QTest::newRow("level") << 1e-6 << 50.0 << QLine();
    QTest::newRow("nearly level") << 1.1e-6 << 50.0 << QLine(50, 120, 350, 120);
    QTest::newRow("falling, nearly level") << -1.1e-6 << 50.0 << QLine(50, 120, 350, 120);
    QTest::newRow("through a corner by rounding") << 0.1 << 100 - 1.2000000000000002 << QLine(50, 22, 350, 20);
    QTest::newRow("no slope") << kNan << 0.0 << QLine();
    QTest::newRow("endless slope") << kInf << 0.0 << QLine();
    QTest::newRow("no intercept") << 1.0 << kInf << QLine();
}

void TestCustomChart::lines()
{
    QFETCH(double, slope);
    QFETCH(double, intercept);
    const ChartGeometry geometry(kChart, {3, 0, 10}, {20, 0, 100});
    QTEST(geometry.line(slope, intercept).value_or(QLine()), "line");
    QVERIFY(!ChartGeometry(kChart, {1, -5, 5}, {1, -5, 5}).line(kInf, 0));
}

/// One axis that can't be stepped leaves the frame alone; one side without room leaves nothing.
void TestCustomChart::noScale()
{
    CustomChart chart;
    fill(&chart);
    for (const QVector<int>& axis :
         {QVector<int>{0, 0, 10}, QVector<int>{-1, 0, 10}, QVector<int>{1, 10, 10}, QVector<int>{1, kMost, kLeast}}) {
        QVERIFY(!ChartGeometry(kChart, {axis[0], axis[1], axis[2]}, {1, 0, 5}).hasScale());
        QVERIFY(!ChartGeometry(kChart, {1, 0, 5}, {axis[0], axis[1], axis[2]}).hasScale());
        chart.setRange("u", axis[0], axis[1], axis[2], "v", 1, 0, 5);
        const QImage picture = pictureOf(&chart);
        QVERIFY(isBlack(picture, 50, 100) && isBlack(picture, 350, 100) && isBlack(picture, 200, 20));
        QVERIFY(!isPainted(picture, QRect(52, 22, 296, 196))); // no tick, point or line
        QVERIFY(!isPainted(picture, QRect(0, 222, 370, 23)) && !isPainted(picture, QRect(0, 0, 48, 245)));
    }
    for (const QSize& size : {QSize(70, 245), QSize(370, 45)}) {
        fill(&chart);
        chart.resize(size);
        QVERIFY(!isPainted(pictureOf(&chart), chart.rect()));
    }
}

void TestCustomChart::painted()
{
    CustomChart chart;
    fill(&chart); // 25 pixels for one unit of x, 2 for one of y
    chart.setTips("MMMMMMMMMM", "value");
    const QImage picture = pictureOf(&chart);
    // Frame, two pixels wide.
    for (const QPoint& corner : {QPoint(50, 20), QPoint(50, 220), QPoint(350, 20), QPoint(350, 220)}) {
        QVERIFY(isBlack(picture, corner.x(), corner.y()));
    }
    QVERIFY(isBlack(picture, 49, 30) && !isBlack(picture, 51, 30) && !isBlack(picture, 48, 30));
    // Ticks of x upward from the frame, none at the end; of y to the right of it.
    QVERIFY(isBlack(picture, 125, 216) && isBlack(picture, 275, 216) && !isPainted(picture, QRect(125, 205, 2, 9)));
    QVERIFY(!isPainted(picture, QRect(340, 205, 8, 13)));
    QVERIFY(isBlack(picture, 54, 100) && !isPainted(picture, QRect(58, 100, 4, 1)));
    // Labels begin left of their ticks, and at the left edge; the captions beside the frame.
    QVERIFY(isPainted(picture, QRect(115, 230, 20, 12)) && !isPainted(picture, QRect(100, 230, 13, 12)));
    QVERIFY(isPainted(picture, QRect(10, 100, 20, 11)));
    QVERIFY(isPainted(picture, QRect(320, 230, 20, 12)) && isPainted(picture, QRect(45, 5, 25, 12)));
    QVERIFY(!isPainted(picture, QRect(369, 225, 1, 20))); // that of x ends before the edge
    // A node with the black dot around it.
    QVERIFY(isBlack(picture, 200, 100) && isBlack(picture, 198, 100) && isBlack(picture, 202, 100));
    QVERIFY(!isPainted(picture, QRect(204, 94, 3, 12)) && !isPainted(picture, QRect(194, 94, 3, 12)));
    // The line enters at the lower edge (x -1.5 is out: at x 0 it is at -5) and leaves at the upper one (x 8.5).
    QVERIFY(isBlack(picture, 262, 20) && isPainted(picture, QRect(259, 23, 3, 3)));
    // It is one pixel wide.
    QVERIFY(isBlack(picture, 137, 120) && !isBlack(picture, 137, 119) && !isBlack(picture, 137, 121));
    QVERIFY(!isPainted(picture, QRect(262, 5, 80, 13)) && !isPainted(picture, QRect(270, 24, 70, 60)));
}

void TestCustomChart::paintedBesideItsFrame()
{
    CustomChart chart;
    fill(&chart);
    chart.setLine(0, 30);
    chart.setPoints({{-1, 0}, {kNan, 0}, {1e300, 0}, {6, kInf}});
    const QImage picture = pictureOf(&chart);
    QVERIFY(isBlack(picture, 25, 180));
    QVERIFY(!isPainted(picture, QRect(60, 30, 280, 175)));
}

void TestCustomChart::seenAtOnce_data()
{
    QTest::addColumn<Change>("change");
    QTest::newRow("size") << Change([](CustomChart* chart) { chart->resize(400, 300); });
    QTest::newRow("font") << Change([](CustomChart* chart) { chart->setFont({"Serif", 7}); });
    QTest::newRow("colours") << Change([](CustomChart* chart) {
        QPalette palette;
        palette.setColor(QPalette::Base, Qt::green);
        chart->setPalette(palette);
    });
    QTest::newRow("disabled") << Change([](CustomChart* chart) { chart->setEnabled(false); });
    QTest::newRow("range") << Change([](CustomChart* chart) { chart->setRange("u", 3, 0, 20, "v", 20, -20, 80); });
    QTest::newRow("step of y") << Change([](CustomChart* chart) { chart->setRange("u", 3, 0, 10, "v", 25, -20, 80); });
    QTest::newRow("unit of x") << Change([](CustomChart* chart) { chart->setRange("w", 3, 0, 10, "v", 20, -20, 80); });
    QTest::newRow("unit of y") << Change([](CustomChart* chart) { chart->setRange("u", 3, 0, 10, "w", 20, -20, 80); });
    QTest::newRow("caption of x") << Change([](CustomChart* chart) { chart->setTips("other", "value"); });
    QTest::newRow("caption of y") << Change([](CustomChart* chart) { chart->setTips("port", "other"); });
    QTest::newRow("points") << Change([](CustomChart* chart) { chart->setPoints({{3, 20}}); });
    QTest::newRow("labels within the frame")
        << Change([](CustomChart* chart) { chart->setRange("u", 3, 0, 10, " as long as that", 20, -20, 80); });
    QTest::newRow("line") << Change([](CustomChart* chart) { chart->setLine(5, 5); });
}

/// What was painted before is seen nowhere: the picture is that of a chart that was never painted.
void TestCustomChart::seenAtOnce()
{
    QFETCH(Change, change);
    CustomChart used;
    fill(&used);
    const QImage before = pictureOf(&used);
    for (int time = 0; time < 2; ++time) { // the second time a picture is made, the third time it is used
        QCOMPARE(pictureOf(&used), before);
    }
    change(&used);
    CustomChart fresh;
    fill(&fresh);
    change(&fresh);
    const QImage after = pictureOf(&fresh);
    QVERIFY(after != before);
    for (int time = 0; time < 3; ++time) {
        QCOMPARE(pictureOf(&used), after);
    }
}

/// On a denser device the picture has that device's pixels, whole scale or not, kept or not.
void TestCustomChart::scaled()
{
    const auto pictureAt = [](CustomChart* chart, double scale) {
        QImage image(kChart * scale, QImage::Format_RGB32);
        image.setDevicePixelRatio(scale);
        image.fill(Qt::red);
        chart->render(&image);
        return image;
    };
    CustomChart used;
    fill(&used);
    for (const double scale : {1.0, 2.0, 1.5, 1.0}) {
        for (int time = 0; time < 3; ++time) {
            const QImage image = pictureAt(&used, scale);
            CustomChart fresh;
            fill(&fresh);
            QCOMPARE(image, pictureAt(&fresh, scale));
            const QPoint tick(qRound(124.5 * scale), qRound(216.5 * scale));
            QCOMPARE(image.pixelColor(tick), QColor(Qt::black));
            QCOMPARE(image.pixelColor(tick + QPoint(qRound(4 * scale), 0)), QColor(Qt::white));
            QVERIFY(image.pixelColor(0, image.height() - 1) != QColor(Qt::red));
        }
    }
    // Captions are the same whatever the font of the rest.
    QFont bold = used.font();
    bold.setBold(true);
    bold.setUnderline(true);
    CustomChart other;
    fill(&other);
    other.setFont(bold);
    const QRect caption(0, 0, 200, 20);
    QCOMPARE(pictureAt(&other, 1.5).copy(caption), pictureAt(&used, 1.5).copy(caption));
}

/// A part of a chart that is too large for its picture to be kept.
void TestCustomChart::huge()
{
    CustomChart chart;
    fill(&chart);
    chart.resize(60000, 60000);
    for (int time = 0; time < 3; ++time) {
        QImage image(200, 100, QImage::Format_RGB32);
        image.fill(Qt::red);
        chart.render(&image, QPoint(), QRect(30, 10, 200, 100));
        QVERIFY(isBlack(image, 20, 50) && image.pixelColor(199, 99) == Qt::white);
    }
}

void TestCustomChart::polyline()
{
    const FakeHost host;
    CustomChart chart;
    QCOMPARE(chart.size(), QSize(380, 259));
    chart.show();
    QTest::qWait(50);
    struct Repaints : QObject {
        int count = 0;
        bool eventFilter(QObject* /*watched*/, QEvent* event) override
        {
            count += event->type() == QEvent::UpdateRequest ? 1 : 0;
            return false;
        }
    } repaints;
    chart.installEventFilter(&repaints);
    for (const int count : {1, 11, 0}) {
        chart.setPolyline(QVector<QPointF>(count).toList());
        QCOMPARE(host.warnings().last(),
                 "setPolyline: Number of points must be between 2 and 10.|" + QString::number(count));
    }
    fill(&chart);
    QCoreApplication::processEvents();
    repaints.count = 0;
    chart.setTips("a", "b");
    chart.setPoints({{1, 1}});
    chart.setLine(1, 1);
    QCoreApplication::processEvents();
    QCOMPARE(repaints.count, 0);
    for (const int count : {2, 10}) {
        chart.setPolyline(QVector<QPointF>(count).toList());
        QCoreApplication::processEvents();
    }
    QCOMPARE(repaints.count, 2);
    QCOMPARE(host.warnings().size(), 3);
}

void TestCustomChart::fontThatFits()
{
    CustomChart chart;
    fill(&chart);
    const QFont wanted("Sans Serif", 12);
    QCOMPARE(chart.fittedFont(wanted), wanted);
    const auto points = [&] { return chart.fittedFont(wanted).pointSize(); };
    chart.setRange("", 8000, 0, 65536, "", 1, 0, 5); // labels of x meet
    QVERIFY(points() < 12);
    chart.resize(1200, 245);
    QCOMPARE(points(), 12);
    chart.setRange("", 1, 0, 5, "", 8000, 0, 65536); // labels of y reach the frame
    QVERIFY(points() < 12);
    chart.resize(1200, 100); // labels of y meet
    chart.setRange("", 1, 0, 5, "", 1, 0, 8);
    QVERIFY(points() < 12);
    chart.setRange("", 1, 0, 1000, "", 1, 0, 1000); // no font is small enough
    QCOMPARE(points(), 6);
    // The label of 64000 ends before the caption of x where a font can make it.
    chart.resize(550, 245);
    chart.setRange("", 8000, 0, 65536, "", 1, 0, 5);
    const int label = QFontMetrics(chart.fittedFont(wanted), &chart).horizontalAdvance("64000");
    QVERIFY(50 + 480 * 8 / 9 - 10 + label < 530 - 30);
    chart.resize(10, 10);
    QCOMPARE(points(), 12);
}

QTEST_MAIN(TestCustomChart)
#include "tst_customchart.moc"
