#include "simulator/toursteps.h"

#include "simulator/confignodes.h"
#include "simulator/userinput.h"

#include <QLabel>
#include <QTimer>
#include <QToolButton>

namespace sim
{

namespace
{

const QString kSave = QStringLiteral("pushButton_save");
const QString kCancel = QStringLiteral("pushButton_cancel");
const QString kMainSwitch = QStringLiteral("pushButton_main_enable");
const QString kPower = QStringLiteral("spinBox_laser_power");
const QString kDetectTime = QStringLiteral("spinBox_feedback_delay");
const QString kCheckOutTime = QStringLiteral("spinBox_laser_check_out_time");
const QString kSaveCommand = QStringLiteral("set_weld_setting_config");
const QString kEnableCommand = QStringLiteral("set_weld_enable");
constexpr int kOperator = 2;
constexpr int kEngineer = 5;

struct FieldRow {
    const char* member;
    const char* widget;
};

constexpr FieldRow kFields[] = {
    {"laser_power", "spinBox_laser_power"},
    {"feedback_delay", "spinBox_feedback_delay"},
    {"laser_check_out_time", "spinBox_laser_check_out_time"},
    {"pre_gas_time", "spinBox_pre_gas_time"},
    {"delay_off_time", "spinBox_delay_off_time"},
    {"detection_delay", "spinBox_detection_delay"},
    {"manual_gas_time", "spinBox_manual_gas_time"},
    {"retraction_distance", "doubleSpinBox_retraction_distance"},
    {"retraction_speed", "doubleSpinBox_retraction_speed"},
    {"max_feed_speed", "doubleSpinBox_max_feed_speed"},
    {"manual_feed_speed", "doubleSpinBox_manual_feed_speed"},
    {"manual_retract_speed", "doubleSpinBox_manual_retract_speed"},
    {"wire_feedback_detection", "spinBox_wire_feedback_detection"},
};

QJsonObject settingNode(const Tour& tour)
{
    return tour.controller()->nodes().value(QLatin1String(node::kSetting)).toObject();
}

void expectFormEqualsNode(Tour& tour)
{
    const QJsonObject setting = settingNode(tour);
    for (const FieldRow& row : kFields) {
        const QWidget* field = tour.window()->findShown(QLatin1String(row.widget));
        const QJsonValue stored = setting.value(QLatin1String(row.member));
        const QVariant shown = field != nullptr ? field->property("value") : QVariant();
        tour.expect(shown.isValid() && stored.isDouble() && shown.toInt() == stored.toInt(),
                    Tour::tr("%1 shows %2, the controller holds %3")
                        .arg(QLatin1String(row.widget), shown.toString(), stored.toVariant().toString()));
    }
}

void expectEditable(Tour& tour, bool editable)
{
    QStringList names{kSave, kCancel, QStringLiteral("spinBox_detection_time"), QStringLiteral("pushButton_Feeder")};
    for (const FieldRow& row : kFields) {
        names.append(QLatin1String(row.widget));
    }
    for (const QString& name : qAsConst(names)) {
        tour.expect(tour.isEnabled(name) == editable, editable ? Tour::tr("%1 should be enabled").arg(name)
                                                               : Tour::tr("%1 should be disabled").arg(name));
    }
}

void expectWeldingOff(Tour& tour)
{
    tour.expect(!tour.controller()->weldEnabled(), Tour::tr("the controller should have welding disabled"));
    tour.expect(!settingNode(tour).value(QLatin1String(node::kMainEnable)).toBool(),
                Tour::tr("the setting node should say that welding is disabled"));
}

QToolButton* navigationButton(const Tour& tour, const char* text)
{
    const QWidget* navigation = tour.window()->findShown(QStringLiteral("wgtNav"));
    for (QToolButton* candidate :
         navigation != nullptr ? navigation->findChildren<QToolButton*>() : QList<QToolButton*>()) {
        if (candidate->text() == QLatin1String(text)) {
            return candidate;
        }
    }
    return nullptr;
}

/// The sub-page of that button is open.
void expectPage(Tour& tour, const char* button, const char* title)
{
    const QToolButton* found = navigationButton(tour, button);
    tour.expect(found != nullptr && found->isChecked(),
                Tour::tr("the button \"%1\" should be there and checked").arg(QLatin1String(button)));
    const auto* label = qobject_cast<QLabel*>(tour.window()->findShown(QStringLiteral("lblTitle")));
    const QString shown = label != nullptr ? label->text() : QString();
    tour.expect(shown == QLatin1String(title),
                Tour::tr("the title should read \"%1\", it reads \"%2\"").arg(QLatin1String(title), shown));
}

/// Opens a sub-page with its navigation button.
void openPage(Tour& tour, const char* button, const char* title)
{
    if (QToolButton* found = navigationButton(tour, button)) {
        tour.click(found);
    }
    expectPage(tour, button, title);
}

void opensAtWeldSetup(Tour& tour)
{
    expectPage(tour, "Weld Setup", "Parmeter Setting");
    tour.controller()->setOperatorLevel(kEngineer);
    tour.controller()->setPowered(false);
    tour.window()->showPageAgain();
    expectFormEqualsNode(tour);
    expectEditable(tour, true);
    tour.expectCommands({});
}

void opensWeldIo(Tour& tour)
{
    openPage(tour, "Weld I/O", "Soldering I/O");
}

void opensCurves(Tour& tour)
{
    openPage(tour, "Char. Curve", "Characteristic curves");
    tour.click(QStringLiteral("pushButton_compute")); // so that the picture shows a line
    tour.expectCommands({QStringLiteral("compute_curve_config")});
}

void opensWeldData(Tour& tour)
{
    openPage(tour, "Weld Data", "Welding Parameters");
}

void opensTracking(Tour& tour)
{
    openPage(tour, "Laser Tracking", "Laser Tracking");
}

void refusesShortDetectTime(Tour& tour)
{
    openPage(tour, "Weld Setup", "Parmeter Setting");
    tour.type(kDetectTime, QStringLiteral("199"));
    tour.type(kCheckOutTime, QStringLiteral("200"));
    tour.click(kSave);
    tour.expectCommands({});
    tour.expectMessages({QStringLiteral("error: The detected time of the light output is later than the light output "
                                        "inspection time; saving failed!")});
}

void saves(Tour& tour)
{
    tour.type(kPower, QStringLiteral("2500"));
    tour.type(kDetectTime, QStringLiteral("900"));
    tour.type(kCheckOutTime, QStringLiteral("150"));
    tour.click(kSave);
    tour.expectCommands({kSaveCommand});
    tour.expectMessages({QStringLiteral("information: Saved successfully")});
    tour.expect(settingNode(tour).value(QLatin1String("laser_power")).toInt() == 2500,
                Tour::tr("the controller should hold a laser power of 2500"));
    expectFormEqualsNode(tour);
}

void savesOnceWhileSlow(Tour& tour)
{
    tour.controller()->setPlan(kSaveCommand, {AnswerKind::Proper, 300});
    QTimer::singleShot(100, tour.window(), [&tour] { tour.click(kSave); });
    tour.click(kSave);
    tour.controller()->setPlan(kSaveCommand, AnswerPlan());
    tour.expectCommands({kSaveCommand});
    tour.expectMessages({QStringLiteral("information: Saved successfully")});
}

void switchesOn(Tour& tour)
{
    tour.click(kMainSwitch);
    tour.expectCommands({kEnableCommand + QLatin1String(" \"TRUE\""), kSaveCommand});
    tour.expectMessages({});
    tour.expect(tour.controller()->weldEnabled(), Tour::tr("the controller should have welding enabled"));
    tour.expect(settingNode(tour).value(QLatin1String(node::kMainEnable)).toBool(),
                Tour::tr("the setting node should say that welding is enabled"));
    expectEditable(tour, false);
}

void switchesOff(Tour& tour)
{
    tour.click(kMainSwitch);
    tour.expectCommands({kEnableCommand + QLatin1String(" \"FALSE\"")});
    tour.expectMessages({});
    expectWeldingOff(tour);
    expectEditable(tour, true);
}

void poweredRobotRefuses(Tour& tour)
{
    tour.controller()->setPowered(true);
    tour.click(kMainSwitch);
    tour.controller()->setPowered(false);
    tour.expectCommands({});
    tour.expectMessages({QStringLiteral("error: Do not modify while powered on!")});
    expectWeldingOff(tour);
    expectEditable(tour, true);
}

void levelLocksPage(Tour& tour)
{
    tour.controller()->setOperatorLevel(kOperator);
    tour.window()->showPageAgain();
    expectEditable(tour, false);
    tour.expect(!tour.isEnabled(kMainSwitch), Tour::tr("the main switch should be disabled"));
    tour.expectCommands({});
}

void levelFallsWhileOpen(Tour& tour)
{
    tour.controller()->setOperatorLevel(kEngineer);
    tour.window()->showPageAgain();
    expectEditable(tour, true);
    tour.controller()->setOperatorLevel(kOperator);
    tour.click(kSave);
    tour.expectCommands({});
    tour.expectMessages({});
    expectEditable(tour, false);
}

void controllerRefuses(Tour& tour)
{
    tour.controller()->setOperatorLevel(kEngineer);
    tour.window()->showPageAgain();
    const QJsonObject before = settingNode(tour);
    tour.controller()->setPlan(kSaveCommand, {AnswerKind::OtherNumber, 0});
    tour.type(kPower, QStringLiteral("1800"));
    tour.click(kSave);
    tour.expectCommands({kSaveCommand});
    tour.expectMessages({QStringLiteral("error: Save failed. Please check the parameter configuration.")});
    tour.expect(settingNode(tour) == before, Tour::tr("the controller should have stored nothing"));
}

void controllerIsSilent(Tour& tour)
{
    tour.controller()->setPlan(kSaveCommand, {AnswerKind::Empty, 0});
    tour.click(kSave);
    // The mark comes when control is back in the event loop.
    userinput::settle(0);
    tour.controller()->setPlan(kSaveCommand, AnswerPlan());
    tour.expectCommands({kSaveCommand});
    tour.expectMessages({});
    tour.expectUntold();
}

void cancelReadsAgain(Tour& tour)
{
    tour.click(kCancel);
    tour.expectCommands({});
    tour.expectMessages({QStringLiteral("information: Cancel successful")});
    expectFormEqualsNode(tour);
}

void refusesSwitchOn(Tour& tour)
{
    tour.controller()->setPlan(kEnableCommand, {AnswerKind::False, 0});
    tour.click(kMainSwitch);
    tour.controller()->setPlan(kEnableCommand, AnswerPlan());
    tour.expectCommands({kEnableCommand + QLatin1String(" \"TRUE\"")});
    tour.expectMessages({QStringLiteral("error: Laser weld startup faild!")});
    expectWeldingOff(tour);
    expectEditable(tour, true);
}

} // namespace

QVector<Tour::Step> tourSteps()
{
    return {
        {QT_TRANSLATE_NOOP("sim::Tour", "the pendant opens at Weld Setup with the controller's values"), "weld-setup",
         opensAtWeldSetup},
        {QT_TRANSLATE_NOOP("sim::Tour", "the page Weld I/O opens"), "weld-io", opensWeldIo},
        {QT_TRANSLATE_NOOP("sim::Tour", "the page Char. Curve opens"), "char-curve", opensCurves},
        {QT_TRANSLATE_NOOP("sim::Tour", "the page Weld Data opens"), "weld-data", opensWeldData},
        {QT_TRANSLATE_NOOP("sim::Tour", "the page Laser Tracking opens"), "laser-tracking", opensTracking},
        {QT_TRANSLATE_NOOP("sim::Tour", "a detect time below the check-out time is refused"), "detect-time-refused",
         refusesShortDetectTime},
        {QT_TRANSLATE_NOOP("sim::Tour", "a save reaches the controller"), "saved", saves},
        {QT_TRANSLATE_NOOP("sim::Tour", "a second press while the controller takes its time does nothing"), "slow-save",
         savesOnceWhileSlow},
        {QT_TRANSLATE_NOOP("sim::Tour", "welding is switched on and the editors are locked"), "switched-on",
         switchesOn},
        {QT_TRANSLATE_NOOP("sim::Tour", "welding is switched off and the editors are free"), "switched-off",
         switchesOff},
        {QT_TRANSLATE_NOOP("sim::Tour", "a powered robot refuses the switch"), "powered-refuses", poweredRobotRefuses},
        {QT_TRANSLATE_NOOP("sim::Tour", "operator level 2 locks the page"), "level-2", levelLocksPage},
        {QT_TRANSLATE_NOOP("sim::Tour", "a level that falls while the page is open sends nothing"), "level-falls",
         levelFallsWhileOpen},
        {QT_TRANSLATE_NOOP("sim::Tour", "the controller refuses a save"), "save-refused", controllerRefuses},
        {QT_TRANSLATE_NOOP("sim::Tour", "the controller stays silent"), "silent", controllerIsSilent},
        {QT_TRANSLATE_NOOP("sim::Tour", "Cancel shows the controller's values again"), "cancelled", cancelReadsAgain},
        {QT_TRANSLATE_NOOP("sim::Tour", "the controller refuses to enable welding"), "enable-refused", refusesSwitchOn},
    };
}

} // namespace sim
