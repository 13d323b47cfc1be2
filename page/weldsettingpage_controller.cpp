// What the page asks of the controller and tells it: show, save, cancel and the main switch.
#include "common/commandresult.h"
#include "common/controller.h"
#include "common/logline.h"
#include "common/mjson.h"
#include "common/names.h"
#include "common/operatormessage.h"
#include "page/blockingpause.h"
#include "page/pageaccess.h"
#include "page/weldsettingpage.h"
#include "ui_weldsettingpage.h"

#include <QScopeGuard>
#include <QShowEvent>

namespace
{

/// How long the switch rests before its command and before the answer is judged, in milliseconds.
constexpr int kSwitchPauseMs = 300;

} // namespace

template <typename Work>
bool WeldSettingPage::conduct(const Work& work)
{
    return m_business.conduct(work, [this](const Business::Turn& turn, Fields fields) { refresh(turn, fields); });
}

void WeldSettingPage::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    m_business.show(*event, [this](const Business::Turn& turn, Fields fields) { refresh(turn, fields); });
}

void WeldSettingPage::refresh(const Business::Turn& turn, Fields fields)
{
    // An exception of the host's leaves a page of which nobody knows what may be edited.
    auto lock = qScopeGuard([this, &turn] {
        if (turn.ownerLives()) {
            lockPage();
        }
    });
    if (!fillSignalCombos(turn) || (fields == Fields::Reread && !loadFromController(turn))) {
        return;
    }
    initPlaneStatus();
    if (applyAccess(turn)) {
        lock.dismiss();
        initStyle();
    }
}

bool WeldSettingPage::fillSignalCombos(const Business::Turn& turn)
{
    const QStringList outputs = mJson::GetDO();
    const QStringList inputs = turn.ownerLives() ? mJson::GetDI() : QStringList();
    if (!turn.ownerLives()) {
        return false;
    }
    ui->comboBox_detection_do->setNames(outputs);
    ui->comboBox_feedback_di->setNames(inputs);
    return true;
}

bool WeldSettingPage::loadFromController(const Business::Turn& turn)
{
    const QJsonValue config = controller::readNode(QLatin1String(names::node::kWeldSetting));
    if (turn.ownerLives()) {
        loadServerConfigFromJson(config);
    }
    return turn.ownerLives();
}

bool WeldSettingPage::applyAccess(const Business::Turn& turn)
{
    const PageAccess access = accessOf(this);
    if (turn.ownerLives()) {
        setEnabled(access != PageAccess::Locked);
        setAllPlaneStatus(!getMainBtnStatus());
    }
    return turn.ownerLives();
}

void WeldSettingPage::lockPage()
{
    setEnabled(false);
    setAllPlaneStatus(!getMainBtnStatus());
}

void WeldSettingPage::checkSaveResult(const QJsonArray& result, const QString& key)
{
    reportOutcome(outcomeOf(result, key),
                  {tr("Saved successfully"), tr("Save failed. Please check the parameter configuration."),
                   QStringLiteral("WeldSettingPage::checkSaveResult failed. ")},
                  key);
}

void WeldSettingPage::save()
{
    conduct([this](const Business::Turn& turn) { return saveNow(turn); });
}

WeldSettingPage::Fields WeldSettingPage::saveNow(const Business::Turn& turn)
{
    const bool allowed = operatorMayChange();
    if (!turn.ownerLives()) {
        return Fields::Keep;
    }
    if (!allowed) {
        lockPage();
        return Fields::Keep;
    }
    if (!validateLaserCheckTime()) {
        return Fields::Keep;
    }
    const QString command = QLatin1String(names::command::kSetWeldSetting);
    const QJsonArray result = controller::sendCommand(this, saveServerConfigToJson());
    if (turn.ownerLives()) {
        checkSaveResult(result, command);
    }
    return outcomeOf(result, command).kind == Outcome::Kind::Done ? Fields::Reread : Fields::Keep;
}

void WeldSettingPage::cancel()
{
    conduct([this](const Business::Turn& turn) {
        if (loadFromController(turn)) {
            initPlaneStatus();
            if (applyAccess(turn)) {
                tellOperator(pendix::information, tr("Cancel successful"));
            }
        }
        return Fields::Reread;
    });
}

void WeldSettingPage::setMainSwitch(bool isOn)
{
    ui->pushButton_main_enable->setIsEnabled(isOn, false);
}

void WeldSettingPage::onSwitchMain(bool isOn)
{
    const bool done = conduct([this, isOn](const Business::Turn& turn) {
        flip(isOn, turn);
        return Fields::Reread;
    });
    if (!done) {
        setMainSwitch(!isOn);
    }
}

void WeldSettingPage::flip(bool isOn, const Business::Turn& turn)
{
    // However this ends, by an exception too: unless the controller has done it, the switch goes back.
    auto putBack = qScopeGuard([this, isOn, &turn] {
        if (turn.ownerLives()) {
            setMainSwitch(!isOn);
        }
    });
    blockingPause(kSwitchPauseMs);
    if (controller::isRobotPowered()) {
        if (turn.ownerLives()) {
            tellOperator(pendix::error, tr("Do not modify while powered on!"));
        }
        return;
    }
    const bool allowed = turn.ownerLives() && operatorMayChange();
    if (!turn.ownerLives()) {
        return;
    }
    if (!allowed) {
        setMainSwitch(!isOn);
        lockPage();
        return;
    }
    if (!isOn) {
        switchOff(turn);
        putBack.dismiss();
        return;
    }
    const std::optional<QJsonObject> settings = switchOn(turn);
    if (settings) {
        putBack.dismiss();
        sendValidated(*settings, turn);
    }
}

void WeldSettingPage::switchOff(const Business::Turn& turn)
{
    controller::sendCommand(this, QLatin1String(names::command::kSetWeldEnable), QStringLiteral("FALSE"));
    if (turn.ownerLives()) {
        setAllPlaneStatus(true);
        setMainSwitch(false);
    }
}

/// The settings that were validated, if the controller welds now: nothing can be edited before it has got them.
std::optional<QJsonObject> WeldSettingPage::switchOn(const Business::Turn& turn)
{
    if (!validateLaserCheckTime()) {
        return std::nullopt;
    }
    setMainSwitch(true);
    const QJsonObject settings = saveServerConfigToJson();
    setAllPlaneStatus(false);
    auto unlock = qScopeGuard([this, &turn] {
        if (turn.ownerLives()) {
            setAllPlaneStatus(true);
        }
    });
    const QJsonArray result =
        controller::sendCommand(this, QLatin1String(names::command::kSetWeldEnable), QStringLiteral("TRUE"));
    blockingPause(kSwitchPauseMs);
    if (!turn.ownerLives()) {
        return std::nullopt;
    }
    if (!parseJsonBool(result)) {
        tellOperator(pendix::error, tr("Laser weld startup faild!"));
        return std::nullopt;
    }
    unlock.dismiss();
    setAllPlaneStatus(false);
    setMainSwitch(true);
    return settings;
}

/// The controller welds with what the form shows, saved or not; its answer changes nothing.
void WeldSettingPage::sendValidated(const QJsonObject& settings, const Business::Turn& turn)
{
    const bool allowed = operatorMayChange();
    if (!turn.ownerLives()) {
        return;
    }
    if (allowed) {
        controller::sendCommand(this, settings);
        return;
    }
    lockPage();
    logLine(LogLevel::Warning) << "WeldSettingPage::onSwitchMain welding is on with the controller's own settings:"
                               << "the operator's level fell before they were sent";
}
