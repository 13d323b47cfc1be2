#include "plugin/pendantbuttons.h"

#include "common/commandresult.h"
#include "common/controller.h"
#include "common/names.h"
#include "common/operatormessage.h"
#include "plugin/corvane.h"

#include <QDebug>
#include <QPointer>
#include <QSharedPointer>
#include <QVector>

#include <functional>

namespace pendix
{

namespace
{

using Plugin = QPointer<Corvane>;

bool permitted()
{
    if (operatorMayChange()) {
        return true;
    }
    tellOperator(warning, Corvane::tr("Insufficient user permissions!"));
    return false;
}

bool isOn(const char* value)
{
    return controller::readNode(QLatin1String(value)).toBool(false);
}

QJsonArray send(const Plugin& plugin, const char* command, bool value)
{
    return controller::sendCommand(plugin, {{QLatin1String(command), value}});
}

void switchWorkMode(const Plugin& plugin, bool pressed)
{
    const bool toVirtual = !isOn(names::node::kVirtualWelding);
    if (!pressed || !permitted()) {
        return;
    }
    // A controller that does not answer counts as one that did it.
    if (extractReturnInt(send(plugin, names::command::kSetVirtualWelding, toVirtual)) != 0) {
        tellOperator(error, Corvane::tr("Switch work mode failed"));
        return;
    }
    if (plugin) {
        plugin->showWeldingMode(toVirtual);
    }
    tellOperator(information,
                 toVirtual ? Corvane::tr("Switch to VirtualWelding") : Corvane::tr("Switch to RealWdlding"));
}

void report(const QJsonArray& result, const char* command, const QString& done, const QString& failed,
            const char* logText)
{
    reportOutcome({done, failed, QLatin1String(logText)}, result, QLatin1String(command));
}

/// The wire runs while the button is held.
QJsonArray moveWire(const Plugin& plugin, const char* command, bool pressed)
{
    QJsonArray result = send(plugin, command, pressed);
    qDebug() << "is_pressed = " << pressed;
    return result;
}

void feedWire(const Plugin& plugin, bool pressed)
{
    if (permitted()) {
        report(moveWire(plugin, names::command::kFeedWire, pressed), names::command::kFeedWire,
               Corvane::tr("Feed wire successfully"), Corvane::tr("Feed wire failed. Please check logs."),
               "Phybtn:: feed_wire failed. ");
    }
}

void retractWire(const Plugin& plugin, bool pressed)
{
    if (permitted()) {
        report(moveWire(plugin, names::command::kRetractWire, pressed), names::command::kRetractWire,
               Corvane::tr("Retract wire successfully"), Corvane::tr("Retract wire failed. Please check logs."),
               "Phybtn:: retract_wire failed. ");
    }
}

void openGas(const Plugin& plugin, bool pressed)
{
    if (pressed && permitted()) {
        report(send(plugin, names::command::kManualGas, true), names::command::kManualGas,
               Corvane::tr("Open gas successfully"), Corvane::tr("Open gas failed. Please check logs."),
               "Phybtn:: open gas failed. ");
    }
}

void toggleRedLight(const Plugin& plugin, bool pressed)
{
    if (pressed && permitted()) {
        // The operator sees the light itself; nothing is reported.
        send(plugin, names::command::kSetRedLight, !isOn(names::node::kRedLightStatus));
    }
}

enum class List { First, Second };
enum class Acts { OnPress, WhileHeld };

struct ButtonRow {
    const char* text;
    const char* picture; ///< file name without "Pressed.png" or "Unpressed.png"
    List list;
    Acts acts;
    void (*act)(const Plugin& plugin, bool pressed);
};

constexpr ButtonRow kButtons[] = {
    {QT_TRANSLATE_NOOP("pendix::Corvane", "Work mode"), "switchMode", List::First, Acts::OnPress, switchWorkMode},
    {QT_TRANSLATE_NOOP("pendix::Corvane", "Wiring"), "feedWire", List::First, Acts::WhileHeld, feedWire},
    {QT_TRANSLATE_NOOP("pendix::Corvane", "ProtectGas"), "gas", List::Second, Acts::OnPress, openGas},
    {QT_TRANSLATE_NOOP("pendix::Corvane", "Retract Wire"), "pullWire", List::Second, Acts::WhileHeld, retractWire},
    {QT_TRANSLATE_NOOP("pendix::Corvane", "Red Light"), "redLight", List::First, Acts::OnPress, toggleRedLight},
};

std::function<void(bool)> handlerOf(const ButtonRow& row, Corvane* plugin)
{
    // What the button was told and has not done yet; the first entry is under way.
    const auto told = QSharedPointer<QVector<bool>>::create();
    return [&row, plugin = Plugin(plugin), told](bool pressed) {
        if (!told->isEmpty() && row.acts == Acts::OnPress) {
            return;
        }
        told->append(pressed);
        if (told->size() > 1) {
            // A stop that overtook its start at the controller would leave the wire running.
            return;
        }
        // With copies: the host may drop its record, and with it this function, while a command is under way.
        const auto takeTurns = [plugin, told, act = row.act] {
            while (plugin && !told->isEmpty()) {
                act(plugin, told->first());
                told->removeFirst();
            }
        };
        takeTurns();
    };
}

} // namespace

PendantButtons pendantButtons(Corvane* plugin)
{
    const QString folder = QStringLiteral(":/png/phybutton/");
    PendantButtons buttons;
    for (const ButtonRow& row : kButtons) {
        const QString picture = folder + QLatin1String(row.picture);
        QList<PhysicalButton>& list = row.list == List::First ? buttons.first : buttons.second;
        list.append({Corvane::tr(row.text), picture + QLatin1String("Pressed.png"),
                     picture + QLatin1String("Unpressed.png"), handlerOf(row, plugin)});
    }
    return buttons;
}

} // namespace pendix
