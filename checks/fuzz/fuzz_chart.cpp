// Curves as they are computed and drawn. An input is a controller's answer to a compute request as JSON text, or
// decisions that take a sound one apart, fill a curve's table and choose size, axes, points and line of a chart: any
// whole numbers, and any doubles bit by bit.
#include "checks/fuzz/application.h"
#include "checks/fuzz/input.h"
#include "checks/fuzz/require.h"
#include "checks/support/scramble.h"
#include "page/characteristicscurvepage.h"
#include "tests/fakehost.h"
#include "widgets/customchart.h"

#include <QCoreApplication>
#include <QImage>
#include <QPainter>
#include <QTableWidget>

#include <cstring>
#include <ctime>
#include <iterator>
#include <limits>

using namespace fuzz;

namespace
{

constexpr int kLargest = 4096; ///< a picture's size, in pixels

/// Pixels of a picture for one of the chart: as on the screen, on a denser one, and where the part that is kept as a
/// picture would be blurred.
constexpr double kScales[] = {1, 2, 1.5};
const QString kCompute = QStringLiteral("compute_curve_config");

CharacteristicsCurvePage& page()
{
    static FakeHost host;
    // Kept for the rest of the process, as a pendant keeps it.
    static auto* const thePage = new CharacteristicsCurvePage(nullptr, nullptr);
    return *thePage;
}

template <typename Number>
Number anyBits(Dice& dice)
{
    unsigned char bytes[sizeof(Number)];
    for (unsigned char& byte : bytes) {
        byte = static_cast<unsigned char>(dice.below(256));
    }
    Number number;
    std::memcpy(&number, bytes, sizeof number);
    return number;
}

/// Half of the time one that an axis may have.
int anyInt(Dice& dice)
{
    return dice.oneIn(2) ? dice.below(2000) - 1000 : anyBits<int>(dice);
}

double anyDouble(Dice& dice)
{
    using Limits = std::numeric_limits<double>;
    constexpr double kOdd[] = {Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN(), Limits::max(), 1e-300};
    switch (dice.below(4)) {
    case 0:
        return anyBits<double>(dice);
    case 1:
        return kOdd[dice.below(static_cast<int>(std::size(kOdd)))];
    default:
        return anyInt(dice) / 100.0;
    }
}

QList<QPointF> anyPoints(Dice& dice)
{
    QList<QPointF> points;
    for (int left = dice.below(12); left > 0; --left) {
        const double x = anyDouble(dice);
        points.append({x, anyDouble(dice)});
    }
    return points;
}

QImage paint(QWidget& widget, double scale)
{
    const std::clock_t start = std::clock();
    QImage picture(widget.size() * scale, QImage::Format_RGB32);
    QPainter painter(&picture);
    painter.scale(scale, scale);
    widget.render(&painter);
    const std::clock_t needed = std::clock() - start;
    require(needed < CLOCKS_PER_SEC, "a chart takes a second to be painted");
    return picture;
}

ChartAxis anyAxis(Dice& dice)
{
    const int step = anyInt(dice);
    const int minimum = anyInt(dice);
    return {step, minimum, anyInt(dice)};
}

void checkGeometry(const QSize& size, const ChartAxis& x, const ChartAxis& y, double slope, double intercept)
{
    const ChartGeometry geometry(size, x, y);
    const QRect frame(QPoint(geometry.left(), geometry.top()), QPoint(geometry.right(), geometry.bottom()));
    for (const ChartGeometry::Tick& tick : geometry.xTicks()) {
        require(tick.position >= frame.left() && tick.position <= frame.right(), "an x tick is beyond the frame");
    }
    for (const ChartGeometry::Tick& tick : geometry.yTicks()) {
        require(tick.position >= frame.top() && tick.position <= frame.bottom(), "a y tick is beyond the frame");
    }
    if (const auto line = geometry.line(slope, intercept)) {
        require(frame.contains(line->p1()) && frame.contains(line->p2()), "a line leaves the frame");
    }
}

void checkChart(Dice& dice)
{
    const double scale = kScales[dice.below(static_cast<int>(std::size(kScales)))];
    const int largest = static_cast<int>(kLargest / scale);
    const auto length = [&dice, largest] { return dice.below(dice.oneIn(8) ? largest + 1 : 500); };
    const int width = length();
    const QSize size(width, length());
    const ChartAxis x = anyAxis(dice);
    const ChartAxis y = anyAxis(dice);
    const QList<QPointF> points = anyPoints(dice);
    const double slope = anyDouble(dice);
    const double intercept = anyDouble(dice);
    checkGeometry(size, x, y, slope, intercept);

    CustomChart chart;
    chart.resize(size);
    chart.setRange(QStringLiteral("A"), x.step, x.minimum, x.maximum, QString(), y.step, y.minimum, y.maximum);
    chart.setPoints(points);
    chart.setPolyline(points);
    chart.setLine(slope, intercept);
    chart.setTips(anyText(dice), anyText(dice));
    chart.setFont(chart.fittedFont(chart.font()));
    const QImage first = paint(chart, scale);
    for (int time = 0; time < 2; ++time) { // a picture of what stays is made, then used
        require(paint(chart, scale) == first, "a chart that did not change looks different");
    }
}

/// Rows whose cells are spin boxes, and rows of somebody else's, whose texts count as numbers.
void fillTable(QTableWidget* table, Dice& dice)
{
    page().populateTable(table, dice.below(12), anyPoints(dice));
    for (const QPointF& node : anyPoints(dice)) {
        page().addRowToTable(table, table->rowCount() + 1, node.x(), node.y());
    }
    for (int left = dice.below(3); left > 0; --left) {
        const int row = table->rowCount();
        table->insertRow(row);
        for (int column = 1; column < table->columnCount(); ++column) {
            const QString text = dice.oneIn(2) ? anyText(dice) : QString::number(anyDouble(dice));
            table->setItem(row, column, new QTableWidgetItem(text));
        }
    }
}

/// The last element counts; without one the line stays as it was.
void checkAnswer(const QJsonArray& answer)
{
    constexpr double kBefore = 3.5;
    double slope = kBefore;
    double intercept = kBefore;
    page().parseJsonRetArray(answer, intercept, slope);
    const QJsonValue line = answer.isEmpty() ? QJsonValue(QJsonObject{{"slope", kBefore}, {"intercept", kBefore}})
                                             : answer.last()[QLatin1String("Corvane")][kCompute];
    require(slope == line[QLatin1String("slope")].toDouble(), "a slope is not that of the last element");
    require(intercept == line[QLatin1String("intercept")].toDouble(), "an intercept is not that of the last element");

    auto* table = page().findChild<QTableWidget*>(QStringLiteral("tableWidget_laserpower"));
    auto* chart = page().findChild<CustomChart*>(QStringLiteral("Chart_laserpower"));
    page().ComputeDrawChart(table, chart, slope, intercept);
    paint(*chart, 1);
}

QJsonArray scrambledAnswer(Dice& dice)
{
    const QJsonObject line{{"return", 0}, {"slope", anyInt(dice) / 100.0}, {"intercept", anyInt(dice) / 100.0}};
    const QJsonObject element{{"Corvane", QJsonObject{{kCompute, line}}}};
    return scrambled(QJsonArray{element, element}, dice).toArray();
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/)
{
    silenceLogs();
    startApplication();
    page().resize(1024, 600);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const Input input(data, size);
    if (!input.holdsDecisions()) {
        checkAnswer(input.json().toArray());
        return 0;
    }
    ByteDice dice = input.dice();
    checkChart(dice);
    auto* table = page().findChild<QTableWidget*>(QStringLiteral("tableWidget_laserpower"));
    fillTable(table, dice);
    page().validateTableData(table);
    checkAnswer(scrambledAnswer(dice));
    page().populateTable(table, 0, {});
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // the cells that are gone
    return 0;
}
