// What the page asks of the controller and tells it: show, save, cancel and a changed type.
#include "common/commandresult.h"
#include "common/controller.h"
#include "common/logline.h"
#include "common/names.h"
#include "common/operatormessage.h"
#include "page/weldiopage.h"
#include "page/weldsettingpage.h"
#include "widgets/listcombobox.h"

#include <QLabel>
#include <QScopeGuard>
#include <QShowEvent>

#include <algorithm>
#include <optional>

template <typename Work>
bool WeldioPage::conduct(const Work& work)
{
    return m_business.conduct(
        [this, &work](const Business::Turn& turn) {
            const Fields allowed = work(turn);
            if (turn.ownerLives()) {
                offerDuePorts(turn);
            }
            return allowed;
        },
        [this](const Business::Turn& turn, Fields fields) { refresh(turn, fields); });
}

void WeldioPage::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    m_business.show(*event, [this](const Business::Turn& turn, Fields fields) { refresh(turn, fields); });
}

void WeldioPage::refresh(const Business::Turn& turn, Fields fields)
{
    // An exception of the host's leaves a page of which nobody knows what may be edited.
    auto lock = qScopeGuard([this, &turn] {
        if (turn.ownerLives()) {
            setEnabled(false);
        }
    });
    if (fields == Fields::Reread) {
        PortLists lists(m_knownLists);
        lists.readRegisters();
        const QJsonValue config =
            turn.ownerLives() ? controller::readNode(QLatin1String(names::node::kWeldIo)) : QJsonValue();
        if (!turn.ownerLives() || !offerPorts(allRows(), lists) || !load(config, lists)) {
            return;
        }
    }
    initStyle();
    m_retractDirection->nameLabel->setText(
        translateIoRowName(QLatin1String(kRetractDirectionKey), m_retractDirection->signal->name));
    scheduleIoLayoutRefresh(true);
    applyIoPageOperateStatus();
    lock.dismiss();
    if (turn.ownerLives()) {
        offerDuePorts(turn);
    }
}

void WeldioPage::initComBox()
{
    PortLists lists(m_knownLists);
    offerPorts(allRows(), lists);
}

/// Gives rows the ports of their types. False if the page has gone meanwhile.
bool WeldioPage::offerPorts(const std::vector<WeldIoRow>& rows, PortLists& lists)
{
    const Business::Watch watch = m_business.watch();
    for (const WeldIoRow& row : rows) {
        lists.ask(*row.signal->portKind, row.typeIndex());
        if (!watch.ownerLives()) {
            return false;
        }
    }
    for (const WeldIoRow& row : rows) {
        // The operator may have changed a type while the host was asked for the ports of another row.
        if (const auto ports = lists.offered(*row.signal->portKind, row.typeIndex())) {
            row.offerPorts(ports);
            m_withoutPorts.remove(row.signal);
        }
    }
    return true;
}

void WeldioPage::offerDuePorts(const Business::Turn& turn)
{
    while (turn.ownerLives() && !m_withoutPorts.isEmpty()) {
        std::vector<WeldIoRow> rows = allRows();
        rows.erase(std::remove_if(rows.begin(), rows.end(),
                                  [this](const WeldIoRow& row) { return !m_withoutPorts.contains(row.signal); }),
                   rows.end());
        PortLists lists(m_knownLists);
        offerPorts(rows, lists);
    }
}

void WeldioPage::onTypeChanged(const WeldIoRow& changed)
{
    const WeldIoRow row = changed;
    row.clearPorts();
    m_withoutPorts.insert(row.signal);
    const Business::Watch watch = m_business.watch();
    m_speaking.append(row.typeCombo);
    const auto spoken = qScopeGuard([this, &row, &watch] {
        if (watch.ownerLives()) {
            m_speaking.removeOne(row.typeCombo);
        } else {
            row.typeCombo->deleteLater();
        }
    });
    // While another business is under way, that one offers the ports at its end.
    conduct([](const Business::Turn& /*turn*/) { return Fields::Reread; });
}

void WeldioPage::loadWeldIOConfigFromJson(const QJsonValue& config)
{
    PortLists lists(m_knownLists);
    load(config, lists);
}

/// Shows a node. False if the page has gone meanwhile.
bool WeldioPage::load(const QJsonValue& config, PortLists& lists)
{
    if (!config.isObject()) {
        return true;
    }
    const Business::Watch watch = m_business.watch();
    const QJsonObject node = config.toObject();
    const std::vector<WeldIoRow> rows = allRows();
    std::vector<Assignment> stored;
    for (const WeldIoRow& row : rows) {
        stored.push_back(storedAssignment(*row.signal, node));
        lists.ask(*row.signal->portKind, typeIndexOf(*row.signal->portKind, stored.back().serverType));
        if (!watch.ownerLives()) {
            return false;
        }
    }
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const PortKind& kind = *rows[i].signal->portKind;
        rows[i].show(stored[i], lists.offered(kind, typeIndexOf(kind, stored[i].serverType)));
    }
    m_withoutPorts.clear();
    return true;
}

/// Reads the node, shows it and derives what can be edited. False if the page has gone meanwhile.
bool WeldioPage::reload(const Business::Turn& turn, PortLists& lists)
{
    const QJsonValue config = controller::readNode(QLatin1String(names::node::kWeldIo));
    if (!turn.ownerLives() || !load(config, lists)) {
        return false;
    }
    applyIoPageOperateStatus();
    return turn.ownerLives();
}

void WeldioPage::applyIoPageOperateStatus()
{
    const Business::Watch watch = m_business.watch();
    const PageAccess access = accessOf(m_settingPage);
    if (watch.ownerLives()) {
        applyAccess(access);
    }
}

void WeldioPage::cancel()
{
    conduct([this](const Business::Turn& turn) {
        PortLists lists(m_knownLists);
        if (reload(turn, lists)) {
            tellOperator(pendix::information, tr("Cancel successful"));
        }
        return Fields::Keep;
    });
}

bool WeldioPage::saveWeldIoConfig()
{
    bool isAccepted = false;
    conduct([this, &isAccepted](const Business::Turn& turn) {
        isAccepted = saveNow(turn);
        return Fields::Keep;
    });
    return isAccepted;
}

bool WeldioPage::saveNow(const Business::Turn& turn)
{
    if (!maySave()) {
        return false;
    }
    // One snapshot: what is judged is what is sent.
    const AssignedSignals outputs = valuesOf(m_outputs->rows());
    const AssignedSignals inputs = valuesOf(m_inputs->rows());
    const QJsonObject command = saveWeldIOConfigToJson();
    PortLists lists(m_knownLists);
    if (!tablePasses(outputs, lists) || !turn.ownerLives() || !tablePasses(inputs, lists) || !turn.ownerLives()) {
        return false;
    }
    const IoRowTemplate* emptyOutput = signalWithoutPort(outputs);
    const IoRowTemplate* empty = emptyOutput != nullptr ? emptyOutput : signalWithoutPort(inputs);
    if (empty != nullptr) {
        showRow(*empty);
        tellOperator(pendix::error, tr("There is an empty port. Please check and reconfigure!"));
        return false;
    }
    if (!maySave()) {
        return false;
    }
    const QJsonArray result = controller::sendCommand(this, command);
    if (!turn.ownerLives() || !checkSaveResult(result, QLatin1String(names::command::kSetWeldIo))) {
        return false;
    }
    if (turn.ownerLives()) {
        reload(turn, lists);
    }
    return true;
}

/// Whether the operator may save now; tells them if not.
bool WeldioPage::maySave()
{
    // A page that was shown disabled stays so until it is shown again.
    if (isEnabled()) {
        const Business::Watch watch = m_business.watch();
        const PageAccess access = accessOf(m_settingPage);
        if (!watch.ownerLives()) {
            return false;
        }
        if (isEnabled() && access == PageAccess::Editable) {
            return true;
        }
        if (isEnabled()) {
            applyAccess(access);
        }
    }
    tellOperator(pendix::warning, tr("Current status does not allow saving I/O configuration."));
    return false;
}

bool WeldioPage::checkSaveResult(const QJsonArray& result, const QString& key)
{
    const QString log = QStringLiteral("WeldioPage::checkSaveResult failed. ");
    const std::optional<QJsonValue> answer = findReturn(result, key);
    if (!answer) {
        tellOperator(pendix::error, tr("Save failed. No response from controller."));
        if (result.isEmpty()) {
            logLine(LogLevel::Error) << log + QLatin1String("empty response for ") << key;
        } else {
            logLine(LogLevel::Error) << log + QLatin1String("not found ") << key << " Result";
        }
        return false;
    }
    const int code = returnCode(*answer);
    reportOutcome({code == 0 ? Outcome::Kind::Done : Outcome::Kind::Refused, code},
                  {tr("Saved successfully"), tr("Save failed. Please check the parameter configuration."), log}, key);
    return code == 0;
}
