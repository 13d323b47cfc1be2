#ifndef SIMULATOR_NODESCHEMA_H
#define SIMULATOR_NODESCHEMA_H

#include "simulator/jsoncheck.h"

namespace sim
{

/// Names of the configuration nodes and values that the simulated controller publishes.
namespace node
{
constexpr char kSetting[] = "weld_setting_config";
constexpr char kIo[] = "weld_io_config";
constexpr char kParameters[] = "weld_param_config";
constexpr char kMatch[] = "weld_param_match";
constexpr char kCurves[] = "weld_curve_config";
constexpr char kVirtualWelding[] = "laser_weld_data.virtual_welding_status";
constexpr char kRedLight[] = "laser_weld_data.weld_redlight_status";
constexpr char kMainEnable[] = "laser_main_enable"; ///< member of the setting node
} // namespace node

/// The five configuration nodes.
QStringList nodeNames();

/// The values that exist beside the nodes.
QStringList valueNames();

/// Checks that a node has exactly the members it must have, each of the right type. What counts or selects
/// something must be able to; quantities are not held to the ranges of a form: what a form makes of an odd one is
/// something to try out.
void checkNode(JsonCheck& check, const QString& name, const QJsonValue& node, const JsonPath& path);

/// Checks an object of all nodes; a null stands for a node that the controller does not have.
QJsonObject checkNodes(JsonCheck& check, const QJsonValue& nodes, const JsonPath& path);

} // namespace sim

#endif
