#ifndef COMMON_NAMES_H
#define COMMON_NAMES_H

/// Names agreed with the host and the controller's welding service.
namespace names
{

/// The plug-in's name: registration key, command target, message source and log folder.
constexpr char kPlugin[] = "Corvane";

/// The sibling plug-in that tracks the seam; its page is embedded in ours.
constexpr char kTrackingPlugin[] = "Mirolt";

namespace node
{
constexpr char kWeldSetting[] = "weld_setting_config";
constexpr char kVirtualWelding[] = "laser_weld_data.virtual_welding_status";
constexpr char kRedLight[] = "laser_weld_data.weld_redlight_status";
constexpr char kMonitorData[] = "weld_monitor_data";
} // namespace node

namespace command
{
constexpr char kSetWeldSetting[] = "set_weld_setting_config";
constexpr char kSetWeldEnable[] = "set_weld_enable";
constexpr char kSetVirtualWelding[] = "set_virtual_welding";
constexpr char kFeedWire[] = "set_weld_feed_wire";
constexpr char kRetractWire[] = "set_weld_retract_wire";
constexpr char kManualGas[] = "set_weld_manual_gas";
constexpr char kRedLight[] = "set_weld_red_light";
constexpr char kMonitor[] = "start_laserweld_monitor";
} // namespace command

namespace setting
{
constexpr char kFontZoom[] = "brisel.fontzoom";
} // namespace setting

} // namespace names

#endif
