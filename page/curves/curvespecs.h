#ifndef PAGE_CURVES_CURVESPECS_H
#define PAGE_CURVES_CURVESPECS_H

#include "common/names.h"

#include <QtGlobal>

/// The least and the greatest physical value of a curve's nodes.
struct ValueRange {
    int least;
    int greatest;
};

/// What differs between the four curves. Texts are sources of translation in kCurveContext, but for the chart's
/// caption, which is the same in every language.
struct CurveSpec {
    const char* title;
    const char* valueHeader; ///< above the physical values
    ValueRange values;
    const char* chartCaption;

    const char* countKey; ///< members of the node and of the commands: number of nodes, nodes
    const char* nodesKey;
    const names::command::Command* save;
    const char* enabledKey; ///< members of the I/O mapping: whether the curve's output is in use, and its port
    const char* portKey;

    const char* page; ///< object names
    const char* nodeCount;
    const char* table;
    const char* chart;
    const char* computeButton;
    const char* cancelButton;
    const char* saveButton;
};

/// The translation context of the page's texts.
constexpr char kCurveContext[] = "CharacteristicsCurvePage";

constexpr int kFewestNodes = 2;
constexpr int kMostNodes = 10;

/// Range of the port values, in units of the port, and their decimals.
constexpr double kGreatestPortValue = 65535.99;
constexpr int kPortDecimals = 2;

/// The curves in the order of their tabs.
inline constexpr CurveSpec kCurveSpecs[] = {
    {QT_TRANSLATE_NOOP("CharacteristicsCurvePage", "Laser Power"),
     QT_TRANSLATE_NOOP("CharacteristicsCurvePage", "Power(W)"),
     {0, 65535},
     "Power W",
     "laser_power_node",
     "power_nodes_data",
     &names::command::kSetPowerCurve,
     "power_enabled",
     "power_port",
     "tab_power",
     "comboBox_node",
     "tableWidget_laserpower",
     "Chart_laserpower",
     "pushButton_compute",
     "pushButton_cancel",
     "pushButton_Save_laserpower"},
    {QT_TRANSLATE_NOOP("CharacteristicsCurvePage", "Feeding Speed"),
     QT_TRANSLATE_NOOP("CharacteristicsCurvePage", " Feed Speed(mm/s)"),
     {0, 65535},
     "Feedspeed mm/s",
     "laser_feed_node",
     "feed_nodes_data",
     &names::command::kSetFeedCurve,
     "wire_speed_enabled",
     "wire_speed_port",
     "tab_feed",
     "comboBox_node_2",
     "tableWidget_feedspeed",
     "Chart_feedspeed",
     "pushButton_compute_5",
     "pushButton_cancel_5",
     "pushButton_Save_speed"},
    {QT_TRANSLATE_NOOP("CharacteristicsCurvePage", "PWM Frequency"),
     QT_TRANSLATE_NOOP("CharacteristicsCurvePage", "Frequency(Hz)"),
     {0, 65535},
     "Frequency Hz",
     "laser_frequency_node",
     "frequency_nodes_data",
     &names::command::kSetFrequencyCurve,
     "frequency_enabled",
     "frequency_port",
     "tab_frequency",
     "comboBox_node_3",
     "tableWidget_frequency",
     "Chart_frequency",
     "pushButton_compute_2",
     "pushButton_cancel_2",
     "pushButton_Save_frequency"},
    {QT_TRANSLATE_NOOP("CharacteristicsCurvePage", "PWM Duty Cycle"),
     QT_TRANSLATE_NOOP("CharacteristicsCurvePage", "DutyCycle(%)"),
     {1, 100},
     "Dutycycle %",
     "laser_dutycycle_node",
     "dutycycle_nodes_data",
     &names::command::kSetDutyCycleCurve,
     "duty_cycle_enabled",
     "duty_cycle_port",
     "tab_dutycycle",
     "comboBox_node_4",
     "tableWidget_dutycycle",
     "Chart_dutycycle",
     "pushButton_compute_3",
     "pushButton_cancel_3",
     "pushButton_Save_dutycycle"},
};

#endif
