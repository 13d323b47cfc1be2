#include "plugin/pendantbuttons.h"

#include "common/business.h"
#include "common/commandresult.h"
#include "common/controller.h"
#include "common/logline.h"
#include "common/names.h"
#include "common/operatormessage.h"
#include "plugin/corvane.h"

#include <QDebug>
#include <QPointer>
#include <QSharedPointer>

#include <functional>
#include <optional>

namespace pendix
{

namespace
{

using Plugin = QPointer<Corvane>;

bool permitted(const Plugin& plugin)
{
    const bool allowed = operatorMayChange();
    if (!allowed && plugin) {
        tellOperator(warning, Corvane::tr("Insufficient user permissions!"));
    }
    return allowed;
}

bool isOn(const char* value)
{
    return controller::readNode(QLatin1String(value)).toBool(false);
}

/// What a button does something about.
struct Press {
    const Plugin& plugin;
    bool down;
    const bool* released = nullptr; ///< whether a held button came up since; null: that changes nothing

    /// Whether it still is to be done: nothing starts that the operator has let go of already.
    bool stands() const { return plugin && (released == nullptr || !*released); }
};

QJsonArray send(const Plugin& plugin, const char* command, bool value)
{
    return controller::sendCommand(plugin, {{QLatin1String(command), value}});
}

/// Sends a command if the operator may. The answer, or nothing when there is nobody left to judge one.
std::optional<QJsonArray> sendPermitted(const Press& press, const char* command, bool value)
{
    if (!permitted(press.plugin) || !press.stands()) {
        return std::nullopt;
    }
    const QJsonArray result = send(press.plugin, command, value);
    return press.plugin ? std::optional(result) : std::nullopt;
}

void switchWorkMode(const Press& press)
{
    const bool toVirtual = !isOn(names::node::kVirtualWelding);
    if (!press.down || !press.stands()) {
        return;
    }
    const auto result = sendPermitted(press, names::command::kSetVirtualWelding, toVirtual);
    if (!result) {
        return;
    }
    // A controller that does not answer counts as one that did it.
    if (extractReturnInt(*result) != 0) {
        tellOperator(error, Corvane::tr("Switch work mode failed"));
        return;
    }
    press.plugin->showWeldingMode(toVirtual);
    tellOperator(information,
                 toVirtual ? Corvane::tr("Switch to VirtualWelding") : Corvane::tr("Switch to RealWdlding"));
}

void report(const QJsonArray& result, const char* command, const OutcomeTexts& texts)
{
    reportOutcome(outcomeOf(result, QLatin1String(command)), texts, QLatin1String(command));
}

/// The wire runs while the button is held.
void moveWire(const Press& press, const char* command, const OutcomeTexts& texts)
{
    if (const auto result = sendPermitted(press, command, press.down)) {
        qDebug() << "is_pressed = " << press.down;
        report(*result, command, texts);
    }
}

void feedWire(const Press& press)
{
    moveWire(press, names::command::kFeedWire,
             {Corvane::tr("Feed wire successfully"), Corvane::tr("Feed wire failed. Please check logs."),
              QStringLiteral("Phybtn:: feed_wire failed. ")});
}

void retractWire(const Press& press)
{
    moveWire(press, names::command::kRetractWire,
             {Corvane::tr("Retract wire successfully"), Corvane::tr("Retract wire failed. Please check logs."),
              QStringLiteral("Phybtn:: retract_wire failed. ")});
}

void openGas(const Press& press)
{
    if (!press.down) {
        return;
    }
    if (const auto result = sendPermitted(press, names::command::kManualGas, true)) {
        report(*result, names::command::kManualGas,
               {Corvane::tr("Open gas successfully"), Corvane::tr("Open gas failed. Please check logs."),
                QStringLiteral("Phybtn:: open gas failed. ")});
    }
}

void toggleRedLight(const Press& press)
{
    if (!press.down || !permitted(press.plugin) || !press.stands()) {
        return;
    }
    const bool on = isOn(names::node::kRedLightStatus);
    // Asked again, as somebody else may have logged in while the status was read. The operator sees the light itself:
    // nothing is reported.
    if (press.stands()) {
        sendPermitted(press, names::command::kSetRedLight, !on);
    }
}

enum class List { First, Second };
enum class Acts { OnPress, WhileHeld };

struct ButtonRow {
    const char* text;
    const char* picture; ///< file name without "Pressed.png" or "Unpressed.png"
    List list;
    Acts acts;
    void (*act)(const Press& press);
};

constexpr ButtonRow kButtons[] = {
    {QT_TRANSLATE_NOOP("pendix::Corvane", "Work mode"), "switchMode", List::First, Acts::OnPress, switchWorkMode},
    {QT_TRANSLATE_NOOP("pendix::Corvane", "Wiring"), "feedWire", List::First, Acts::WhileHeld, feedWire},
    {QT_TRANSLATE_NOOP("pendix::Corvane", "ProtectGas"), "gas", List::Second, Acts::OnPress, openGas},
    {QT_TRANSLATE_NOOP("pendix::Corvane", "Retract Wire"), "pullWire", List::Second, Acts::WhileHeld, retractWire},
    {QT_TRANSLATE_NOOP("pendix::Corvane", "Red Light"), "redLight", List::First, Acts::OnPress, toggleRedLight},
};

/// What a button that acts while it is held was told and has not done yet.
struct HeldState {
    bool stopWaits = false;
    bool startWaits = false;
    Business business;
};

/// Does what waits, the stop first: of several states told meanwhile only the last one counts, but no start goes out
/// before the stop of the one before it.
void takeTurns(const ButtonRow& row, const Plugin& plugin, HeldState& state)
{
    while (plugin && (state.stopWaits || state.startWaits)) {
        const bool down = !state.stopWaits;
        (down ? state.startWaits : state.stopWaits) = false;
        try {
            row.act({plugin, down, down ? &state.stopWaits : nullptr});
        } catch (...) {
            if (!state.stopWaits) {
                throw;
            }
            // The button is up already, and the controller may have started the wire before the host failed.
            logLine(LogLevel::Warning) << "Phybtn:: exception, the stop goes out all the same";
        }
    }
}

void hold(const ButtonRow& row, const Plugin& plugin, HeldState& state, bool down)
{
    state.stopWaits = state.stopWaits || !down;
    state.startWaits = down;
    // A stop that overtook its start at the controller would leave the wire running.
    if (const auto turn = state.business.begin()) {
        takeTurns(row, plugin, state);
    }
}

std::function<void(bool)> handlerOf(const ButtonRow& row, Corvane* plugin)
{
    // All in copies: the host may drop its record, and with it this function, while a command is under way.
    if (row.acts == Acts::WhileHeld) {
        return [&row, plugin = Plugin(plugin), state = QSharedPointer<HeldState>::create()](bool down) {
            const auto ours = state; // NOLINT(performance-unnecessary-copy-initialization): outlives the function
            hold(row, Plugin(plugin), *ours, down);
        };
    }
    return [&row, plugin = Plugin(plugin), business = QSharedPointer<Business>::create()](bool down) {
        const auto turn = business->begin();
        const Plugin ours = plugin;
        if (turn && ours) {
            row.act({ours, down});
        }
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
