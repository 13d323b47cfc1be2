// What Char. Curve costs: its chart, and the page with four of them.

#include "bench/charts.h"
#include "bench/pageshow.h"
#include "common/names.h"
#include "page/characteristicscurvepage.h"
#include "page/curves/curvetab.h"
#include "page/curves/curvetable.h"
#include "tests/fakehost.h"
#include "widgets/customchart.h"
#include "widgets/listcombobox.h"
#include "widgets/uiscale.h"

#include <QGuiApplication>
#include <QImage>
#include <QScreen>
#include <QTabWidget>
#include <QTableWidget>
#include <QVBoxLayout>

namespace
{

constexpr QSize kChartSize(550, 467); ///< what the page leaves to a chart, in pixels
constexpr int kCharts = 20;           ///< that are constructed for one sample

/// Ten nodes of a power curve, and the line through them, each value moved by as much. All such curves have the same
/// limits.
ShownCurve powerCurve(double move)
{
    ShownCurve curve;
    for (int i = 0; i < kMostNodes - 1; ++i) {
        curve.nodes.append({100 + 400 * i + move, 150 + 600 * i + move});
    }
    curve.nodes.append({4095, 6000});
    curve.line = {1.46, 12 + move};
    curve.limits = limitsOf(curve.nodes);
    curve.xCaption = QStringLiteral("AO1");
    curve.yCaption = QStringLiteral("Power W");
    return curve;
}

Chart newOurChart(QWidget* parent)
{
    auto* chart = new CustomChart(parent);
    return {chart,
            [chart](const ShownCurve& curve) {
                const ChartAxis& x = curve.limits.x;
                const ChartAxis& y = curve.limits.y;
                chart->setRange(QString(), x.step, x.minimum, x.maximum, QString(), y.step, y.minimum, y.maximum);
                chart->setPoints(curve.nodes);
                chart->setLine(curve.line.slope, curve.line.intercept);
                chart->setTips(curve.xCaption, curve.yCaption);
            },
            [chart] { chart->repaint(); }};
}

/// What the screen shows of a widget: what has really been painted, however it came there.
QImage onScreen(const QWidget& widget)
{
    const QWidget* window = widget.window();
    const QRect place(widget.mapTo(window, QPoint()), widget.size());
    return QGuiApplication::primaryScreen()
        ->grabWindow(window->winId(), place.x(), place.y(), place.width(), place.height())
        .toImage();
}

using ChartMaker = Chart (*)(QWidget* parent);

/// A window with nothing in it but a chart, once there is one.
struct Window {
    Window()
    {
        widget.resize(kChartSize);
        widget.setFont(UiScale::contentFont(&widget, kTickFontPoints));
        showNow(widget);
    }

    /// Up to the first paint of a curve.
    Chart add(ChartMaker make, const ShownCurve& curve)
    {
        Chart chart = make(&widget);
        chart.widget->resize(kChartSize);
        chart.set(curve);
        showNow(*chart.widget);
        return chart;
    }

    QWidget widget;
};

/// The picture of a curve: painted by a chart that was shown with another one before.
QImage pictureOf(ChartMaker make, const ShownCurve& former, const ShownCurve& curve)
{
    Window window;
    const Chart chart = window.add(make, former);
    chart.set(curve);
    chart.paint();
    return onScreen(*chart.widget);
}

/// Charts that don't show the same, or don't follow their curve, are not worth measuring.
void checkCharts(const ShownCurve& curve, const ShownCurve& other)
{
    for (const ChartMaker make : {newOurChart, newPlainChart, newCustomPlot}) {
        insist(pictureOf(make, other, curve) != pictureOf(make, curve, other), "a chart shows its curve");
    }
    insist(pictureOf(newOurChart, other, curve) == pictureOf(newPlainChart, other, curve) &&
               pictureOf(newOurChart, curve, other) == pictureOf(newPlainChart, curve, other),
           "the plain chart shows the same picture as ours");
    Window window;
    const Chart ours = window.add(newOurChart, curve);
    insist(onScreen(*ours.widget) == pictureOf(newPlainChart, other, curve), "our chart's first picture is the same");
}

Contestant repainted(const QString& name, ChartMaker make)
{
    return {name, [make] {
                Window window;
                const Chart chart = window.add(make, powerCurve(0));
                return repeated({}, chart.paint).sample();
            }};
}

/// Two curves in turns.
Contestant repaintedAnew(const QString& name, ChartMaker make)
{
    return {name, [make] {
                const ShownCurve curves[] = {powerCurve(0), powerCurve(30)};
                Window window;
                const Chart chart = window.add(make, curves[0]);
                const auto paintNext = [&chart, &curves, next = 1]() mutable {
                    chart.set(curves[next]);
                    chart.paint();
                    next = 1 - next;
                };
                return repeated({}, paintNext).sample();
            }};
}

Contestant constructed(const QString& name, ChartMaker make)
{
    return {name, [make] {
                const ShownCurve curve = powerCurve(0);
                Window window;
                double ms = 0;
                for (int i = 0; i < kCharts; ++i) {
                    Chart chart;
                    ms += cpuMs([&] { chart = window.add(make, curve); });
                    delete chart.widget;
                }
                return ms / kCharts;
            }};
}

/// Nodes that fit every curve.
QList<QPointF> storedNodes()
{
    QList<QPointF> nodes;
    for (int i = 1; i <= kMostNodes; ++i) {
        nodes.append({400.0 * i, 10.0 * i});
    }
    return nodes;
}

/// A controller with ten nodes for each curve, all of whose outputs are in use.
class CurveController : public FakeHost
{
public:
    CurveController()
    {
        QJsonObject stored;
        QJsonObject mapping;
        for (const CurveSpec& curve : kCurveSpecs) {
            const QJsonObject members = curveMembers(curve, storedNodes());
            for (auto member = members.begin(); member != members.end(); ++member) {
                stored.insert(member.key(), member.value());
            }
            mapping.insert(QLatin1String(curve.enabledKey), true);
            mapping.insert(QLatin1String(curve.portKey), QStringLiteral("AO1"));
        }
        nodes[QLatin1String(names::node::kWeldCurve)] = stored;
        nodes[QLatin1String(names::node::kWeldIo)] = mapping;
    }

    void log(const pendix::LogStatement& /*statement*/) override {}
};

/// As the main page does it.
std::unique_ptr<QWidget> styledPage()
{
    auto page = std::make_unique<CharacteristicsCurvePage>(nullptr, nullptr);
    page->initStyle();
    return page;
}

/// A page that has not read all nodes, or whose first chart is not on the screen, was too cheap.
void checkPage(const QWidget& page)
{
    for (const CurveSpec& curve : kCurveSpecs) {
        auto* table = page.findChild<QTableWidget*>(QLatin1String(curve.table));
        insist(curvetable::nodes(table) == storedNodes(), "Char. Curve shows what is stored");
    }
    auto* chart = page.findChild<QWidget*>(QLatin1String(kCurveSpecs[0].chart));
    QImage painted(chart->size(), QImage::Format_RGB32);
    chart->render(&painted);
    insist(onScreen(*chart).convertToFormat(QImage::Format_RGB32) == painted, "Char. Curve's chart is painted");
}

Contestant constructedAndShown(const QString& name, std::unique_ptr<QWidget> (*make)())
{
    return {name, [make] {
                const CurveController host;
                std::unique_ptr<QWidget> page;
                const double ms = cpuMs([make, &page] {
                    page = make();
                    page->resize(kScreen);
                    showNow(*page);
                });
                checkPage(*page);
                return ms;
            }};
}

Contestant firstShow(const QString& name)
{
    return {name, [] {
                const CurveController host;
                const std::unique_ptr<QWidget> page = styledPage();
                page->resize(kScreen);
                return cpuMs([&page] { showNow(*page); });
            }};
}

Contestant shownAgain(const QString& name)
{
    return {name, [] {
                const CurveController host;
                const std::unique_ptr<QWidget> page = styledPage();
                page->resize(kScreen);
                showNow(*page);
                return shownAgainMs(*page);
            }};
}

Contestant styledFirst(const QString& name)
{
    return {name, [] {
                const CurveController host;
                CharacteristicsCurvePage page(nullptr, nullptr);
                page.resize(kScreen);
                return cpuMs([&page] { page.initStyle(); });
            }};
}

Contestant styledAgain(const QString& name)
{
    return {name, [] {
                const CurveController host;
                CharacteristicsCurvePage page(nullptr, nullptr);
                page.resize(kScreen);
                page.initStyle();
                showNow(page);
                return repeated({}, [&page] { page.initStyle(); }).sample();
            }};
}

/// The page's widgets as it builds them, with the nodes in each table: no sheets.
std::unique_ptr<QWidget> plainPage(const QList<QPointF>& nodes)
{
    auto page = std::make_unique<QWidget>();
    auto* tabs = new QTabWidget;
    auto* layout = new QVBoxLayout(page.get());
    layout->addWidget(tabs);
    for (const CurveSpec& curve : kCurveSpecs) {
        const CurveTab tab = addCurveTab(tabs, curve);
        tab.nodeCount->setCurrentIndex(nodes.size() - kFewestNodes);
        curvetable::populate(tab.table, curve.values, nodes.size(), nodes);
    }
    return page;
}

std::unique_ptr<QWidget> plainPageWithStoredNodes()
{
    return plainPage(storedNodes());
}

} // namespace

std::unique_ptr<QWidget> plainCurves()
{
    return plainPage({{0, 0}, {0, 0}});
}

void addCurveRows(BenchTable& table)
{
    checkCharts(powerCurve(0), powerCurve(30));
    const QString plain = QStringLiteral("all of the same picture, plainly");
    const QString peer = QStringLiteral("QCustomPlot");
    table.row(repaintedAnew(QStringLiteral("chart repainted with new nodes and line"), newOurChart),
              repaintedAnew(plain, newPlainChart), 0.5);
    table.row(repainted(QStringLiteral("chart repainted, nothing new"), newOurChart), repainted(peer, newCustomPlot),
              1.0);
    table.row(constructed(QStringLiteral("chart constructed and painted"), newOurChart),
              constructed(plain, newPlainChart), 1.1);
    table.row(constructed(QStringLiteral("QCustomPlot constructed and painted"), newCustomPlot),
              constructed(plain, newPlainChart), {});
    table.row(constructedAndShown(QStringLiteral("Char. Curve constructed, styled and shown"), styledPage),
              constructedAndShown(QStringLiteral("its widgets without sheets"), plainPageWithStoredNodes), 2.5);
    table.row(styledAgain(QStringLiteral("Char. Curve styled again")), styledFirst(QStringLiteral("styled first")),
              0.05);
    table.row(shownAgain(QStringLiteral("Char. Curve shown again, same nodes")),
              firstShow(QStringLiteral("first shown")), {});
}
