#ifndef COMMON_CONTROLLER_H
#define COMMON_CONTROLLER_H

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>
#include <QStringList>

class QObject;

/// The one road from the package to the robot controller. Every call is synchronous, runs on the GUI
/// thread and may spin the event loop while the host waits. Without a host, values are undefined,
/// lists and answers empty.
namespace controller
{

/// Current value of a service node, or of a dotted path below one.
QJsonValue readNode(const QString& name);

/// A setting of the host itself, such as the font zoom.
QJsonValue hostSetting(const QString& name);

/// Sends a command object ({command name: argument}) for the plug-in and returns the result array.
QJsonArray sendCommand(QObject* sender, const QJsonObject& command);

/// Sends a command whose argument is a text.
QJsonArray sendCommand(QObject* sender, const QString& command, const QString& value);

/// Ends the plug-in's subscription to live data of the controller.
void endSubscription(const QString& data);

/// True while the robot is powered on; without a host the robot counts as powered, which forbids changes.
bool isRobotPowered();

/// Names of the I/O signals of one type ("DO", "DI", "AO", "AI", "GO", "GI") in the host's order.
QStringList ioNames(const QString& type);

/// Names of all registers, in no particular order.
QStringList registerNames();

/// Register metadata as the controller publishes it, normally an array of objects.
QJsonValue registerMetadata();

/// Names of the defined points (robtargets), tools, work objects, speed data and zone data, in the host's order.
QStringList pointNames();
QStringList toolNames();
QStringList wobjNames();
QStringList speedNames();
QStringList zoneNames();

/// The active tool and work object.
QString currentTool();
QString currentWobj();

/// Stores the robot's current position as a new point, in the given tool and work object. An existing point of
/// that name stays as it is. The host reports nothing back: what goes wrong is its own to show.
void storeCurrentPoint(const QString& name, const QString& tool, const QString& wobj);

} // namespace controller

#endif
