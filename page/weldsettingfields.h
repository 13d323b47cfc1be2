#ifndef PAGE_WELDSETTINGFIELDS_H
#define PAGE_WELDSETTINGFIELDS_H

#include "widgets/formfields.h"

/// The whole node "weld_setting_config", for the page and for what describes the node to integrators. Ranges and
/// units stand in the page's form.
inline constexpr FieldSpec kSettingFields[] = {
    {"laser_main_enable", "pushButton_main_enable", Read::Bool},
    {"laser_comm_type", "comboBox_laser_comm_type", Read::Fixed, 0},
    {"laser_power", "spinBox_laser_power", Read::Truncated},
    {"feedback_delay", "spinBox_feedback_delay", Read::Truncated},
    {"pre_gas_time", "spinBox_pre_gas_time", Read::Integer},
    {"delay_off_time", "spinBox_delay_off_time", Read::Integer},
    {"detection_delay", "spinBox_detection_delay", Read::Integer},
    {"manual_gas_time", "spinBox_manual_gas_time", Read::Integer},
    {"retraction_distance", "doubleSpinBox_retraction_distance", Read::Truncated},
    {"retraction_speed", "doubleSpinBox_retraction_speed", Read::Truncated},
    {"detection_time", "spinBox_detection_time", Read::Integer},
    {"feeder_enable", "pushButton_Feeder", Read::Bool},
    {"wire_feeder_comm_type", "comboBox_wire_feeder_comm_type", Read::Fixed, 0},
    {"max_feed_speed", "doubleSpinBox_max_feed_speed", Read::Truncated},
    {"manual_feed_speed", "doubleSpinBox_manual_feed_speed", Read::Truncated},
    {"manual_retract_speed", "doubleSpinBox_manual_retract_speed", Read::Truncated},
    {"wire_feedback_detection", "spinBox_wire_feedback_detection", Read::Integer},
    {"laser_check_out_time", "spinBox_laser_check_out_time", Read::Integer},
};

#endif
