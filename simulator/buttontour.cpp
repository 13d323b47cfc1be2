#include "simulator/buttontour.h"

#include "simulator/confignodes.h"
#include "simulator/userinput.h"

#include <QDialog>
#include <QDoubleSpinBox>

namespace sim
{

namespace
{

const QString kWorkMode = QStringLiteral("pendantButton_Corvane_1_1");
const QString kWiring = QStringLiteral("pendantButton_Corvane_1_2");
const QString kRedLightButton = QStringLiteral("pendantButton_Corvane_1_3");
const QString kGas = QStringLiteral("pendantButton_Corvane_2_1");
const QString kMonitor = QStringLiteral("pendantButton_pendant_1_1");
const QString kModeCommand = QStringLiteral("set_virtual_welding");
constexpr int kOperator = 2;
constexpr int kEngineer = 5;

void expectVirtual(Tour& tour, bool isVirtual)
{
    tour.expect(tour.controller()->value(QLatin1String(node::kVirtualWelding)) == isVirtual,
                isVirtual ? Tour::tr("the controller should weld virtually")
                          : Tour::tr("the controller should weld for real"));
}

void expectWire(Tour& tour, Consumables::Wire motion, const QString& words)
{
    tour.expect(tour.controller()->consumables().wire() == motion, words);
}

void weldsForReal(Tour& tour)
{
    tour.window()->showProgram(false);
    // What the pendant shows, and the truth beside it.
    tour.openTab("inspector", PendantWindow::tr("Controller"));
    tour.controller()->setOperatorLevel(kEngineer);
    tour.controller()->setValue(QLatin1String(node::kVirtualWelding), true);
    tour.click(kWorkMode);
    tour.expectCommands({kModeCommand + QLatin1String(" false")});
    tour.expectMessages({QStringLiteral("information: Switch to RealWdlding")});
    expectVirtual(tour, false);
}

void silentControllerDeceives(Tour& tour)
{
    tour.controller()->setPlan(kModeCommand, {AnswerKind::Empty, 0});
    tour.click(kWorkMode);
    tour.controller()->setPlan(kModeCommand, AnswerPlan());
    tour.expectCommands({kModeCommand + QLatin1String(" true")});
    tour.expectMessages({QStringLiteral("information: Switch to VirtualWelding")});
    expectVirtual(tour, false);
}

void weldsVirtually(Tour& tour)
{
    tour.click(kWorkMode);
    tour.expectCommands({kModeCommand + QLatin1String(" true")});
    tour.expectMessages({QStringLiteral("information: Switch to VirtualWelding")});
    expectVirtual(tour, true);
}

void holdsWiring(Tour& tour)
{
    const QString obstacle = userinput::press(tour.window()->findShown(kWiring));
    tour.expect(obstacle.isEmpty(), obstacle);
    tour.expectCommands({QStringLiteral("set_weld_feed_wire true")});
    tour.expectMessages({QStringLiteral("information: Feed wire successfully")});
    expectWire(tour, Consumables::Wire::Feeding, Tour::tr("the wire should run"));
}

void releasesWiring(Tour& tour)
{
    userinput::release(tour.window()->findShown(kWiring));
    tour.expectCommands({QStringLiteral("set_weld_feed_wire false")});
    tour.expectMessages({QStringLiteral("information: Feed wire successfully")});
    expectWire(tour, Consumables::Wire::Stopped, Tour::tr("the wire should stand"));
}

void refusedReleaseSendsNoStop(Tour& tour)
{
    QWidget* wiring = tour.window()->findShown(kWiring);
    userinput::press(wiring);
    tour.controller()->setOperatorLevel(kOperator);
    userinput::release(wiring);
    tour.expectCommands({QStringLiteral("set_weld_feed_wire true")});
    tour.expectMessages({QStringLiteral("information: Feed wire successfully"),
                         QStringLiteral("warning: Insufficient user permissions!")});
    expectWire(tour, Consumables::Wire::Feeding, Tour::tr("the wire should run on"));
}

void stopsTheWire(Tour& tour)
{
    tour.controller()->setOperatorLevel(kEngineer);
    tour.click(kWiring);
    expectWire(tour, Consumables::Wire::Stopped, Tour::tr("the wire should stand"));
}

void opensGasAndLight(Tour& tour)
{
    tour.click(kGas);
    tour.click(kRedLightButton);
    tour.expectCommands({QStringLiteral("set_weld_manual_gas true"), QStringLiteral("set_weld_red_light true")});
    tour.expectMessages({QStringLiteral("information: Open gas successfully")});
    tour.expect(tour.controller()->value(QLatin1String(node::kRedLight)), Tour::tr("the red light should be on"));
}

void watchesTheMonitor(Tour& tour)
{
    tour.controller()->setValue(QLatin1String(node::kVirtualWelding), false);
    tour.click(kMonitor);
    auto* monitor = tour.window()->findChild<QDialog*>(QStringLiteral("ButtonMonitorPage"));
    tour.expect(monitor != nullptr && monitor->isVisible(), Tour::tr("the monitor should be open"));
    if (monitor != nullptr) {
        const auto* power = monitor->findChild<QDoubleSpinBox*>(QStringLiteral("doubleSpinBox_Power"));
        tour.expect(power != nullptr && power->value() > 0, Tour::tr("the monitor should show the laser's power"));
        userinput::key(monitor, Qt::Key_Escape);
    }
    const QString command = QStringLiteral("start_laserweld_monitor");
    tour.expectCommands({command + QLatin1String(" true"), command + QLatin1String(" false")});
    tour.expectMessages({});
    tour.expect(!tour.controller()->monitoring(), Tour::tr("the stream of values should have ended"));
}

} // namespace

QVector<Tour::Step> buttonSteps()
{
    return {
        {QT_TRANSLATE_NOOP("sim::Tour", "Work mode switches to real welding"), "real-welding", weldsForReal},
        {QT_TRANSLATE_NOOP("sim::Tour", "a silent controller reads as success: the picture is wrong"),
         "work-mode-silent", silentControllerDeceives},
        {QT_TRANSLATE_NOOP("sim::Tour", "Work mode switches to virtual welding"), "virtual-welding", weldsVirtually},
        {QT_TRANSLATE_NOOP("sim::Tour", "the wire runs while Wiring is held"), "wiring-held", holdsWiring},
        {QT_TRANSLATE_NOOP("sim::Tour", "the wire stops when Wiring is released"), "wiring-released", releasesWiring},
        {QT_TRANSLATE_NOOP("sim::Tour", "a release that is refused sends no stop"), "release-refused",
         refusedReleaseSendsNoStop},
        {QT_TRANSLATE_NOOP("sim::Tour", "a press and a release with a sufficient level stop the wire"), "wire-stopped",
         stopsTheWire},
        {QT_TRANSLATE_NOOP("sim::Tour", "gas flows and the red light is on"), "gas-and-light", opensGasAndLight},
        {QT_TRANSLATE_NOOP("sim::Tour", "the monitor shows live values and ends their stream when it is closed"),
         "monitor", watchesTheMonitor},
    };
}

} // namespace sim
