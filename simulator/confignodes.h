#ifndef SIMULATOR_CONFIGNODES_H
#define SIMULATOR_CONFIGNODES_H

#include "simulator/schemavalidator.h"

#include <QStringList>

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

/// The first thing below "nodes" of a cell or state that is not as the node's schema has it. A null stands for a node
/// that the controller does not have.
std::optional<SchemaFault> nodesFault(const QJsonObject& root);

} // namespace sim

#endif
