// What the page asks of the controller and tells it: show, compute, save and cancel.
#include "common/commandresult.h"
#include "common/controller.h"
#include "common/names.h"
#include "common/operatormessage.h"
#include "page/characteristicscurvepage.h"
#include "page/curves/curvetable.h"
#include "page/weldsettingpage.h"
#include "widgets/customchart.h"

#include <QScopeGuard>
#include <QShowEvent>
#include <QTabWidget>

template <typename Work>
bool CharacteristicsCurvePage::conduct(const Work& work)
{
    return m_business.conduct(work, [this](const Business::Turn& turn, Fields fields) { refresh(turn, fields); });
}

void CharacteristicsCurvePage::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    m_business.show(*event, [this](const Business::Turn& turn, Fields fields) { refresh(turn, fields); });
}

void CharacteristicsCurvePage::refresh(const Business::Turn& turn, Fields fields)
{
    // An exception of the host's leaves a page of which nobody knows what may be edited.
    auto lock = qScopeGuard([this, &turn] {
        if (turn.ownerLives()) {
            setEnabled(false);
        }
    });
    if (fields == Fields::Reread && !loadFromController(turn)) {
        return;
    }
    initTableHeaderText();
    if (!turn.ownerLives()) {
        return;
    }
    initStyle();
    if (!computeDrawnAgain(turn)) {
        return;
    }
    applyCurvePageOperateStatus();
    lock.dismiss();
}

/// Reads the node and shows it. False if the page has gone meanwhile.
bool CharacteristicsCurvePage::loadFromController(const Business::Turn& turn)
{
    const QJsonValue config = controller::readNode(QLatin1String(names::node::kWeldCurve));
    if (turn.ownerLives()) {
        loadWeldCurveConfigFromJson(config);
    }
    return turn.ownerLives();
}

/// Has every line that was drawn computed again. False if the page has gone meanwhile.
bool CharacteristicsCurvePage::computeDrawnAgain(const Business::Turn& turn)
{
    for (int i = 0; turn.ownerLives() && i < m_tabs.size(); ++i) {
        if (m_tabs.at(i).chart->hasLine()) {
            computeEntered(m_tabs.at(i));
        }
    }
    return turn.ownerLives();
}

void CharacteristicsCurvePage::initTableHeaderText()
{
    const Business::Watch watch = m_business.watch();
    const QJsonValue config = controller::readNode(QLatin1String(names::node::kWeldIo));
    if (watch.ownerLives() && config.isObject()) {
        showPorts(config.toObject());
    }
}

const CurveTab* CharacteristicsCurvePage::tabAt(int tab) const
{
    return tab >= 0 && tab < m_tabs.size() ? &m_tabs.at(tab) : nullptr;
}

bool CharacteristicsCurvePage::isCurveTabIoConfigured(int tab) const
{
    const CurveTab* shown = tabAt(tab);
    if (shown == nullptr) {
        return false;
    }
    const CurveSpec& curve = *shown->curve;
    const QJsonValue config = controller::readNode(QLatin1String(names::node::kWeldIo));
    return config.isObject() && isAssigned(curve, config.toObject());
}

void CharacteristicsCurvePage::setCurveTabEditable(int tab, bool editable)
{
    const Business::Watch watch = m_business.watch();
    const bool isInUse = isCurveTabIoConfigured(tab);
    const CurveTab* shown = watch.ownerLives() ? tabAt(tab) : nullptr;
    if (shown != nullptr) {
        shown->setAccess(isInUse, editable);
    }
}

void CharacteristicsCurvePage::applyCurvePageOperateStatus()
{
    const Business::Watch watch = m_business.watch();
    const PageAccess access = accessOf(m_settingPage);
    if (watch.ownerLives()) {
        applyAccess(access);
    }
}

void CharacteristicsCurvePage::applyAccess(PageAccess access)
{
    setEnabled(access != PageAccess::Locked);
    if (access == PageAccess::Locked) {
        return;
    }
    m_tabWidget->setEnabled(true);
    const Business::Watch watch = m_business.watch();
    const QJsonValue config = controller::readNode(QLatin1String(names::node::kWeldIo));
    if (!watch.ownerLives()) {
        return;
    }
    const bool isEditable = !isWeldingOn(); // as it stands after the host was asked
    for (const CurveTab& tab : m_tabs) {
        tab.setAccess(config.isObject() && isAssigned(*tab.curve, config.toObject()), isEditable);
    }
}

/// Whether the operator may compute and save now; shows them if not, without a word.
bool CharacteristicsCurvePage::mayChange()
{
    const Business::Watch watch = m_business.watch();
    const PageAccess access = accessOf(m_settingPage);
    if (!watch.ownerLives() || !isEnabled()) {
        return false; // a page that the host has disabled stays so until it is shown again
    }
    if (access != PageAccess::Editable) {
        applyAccess(access);
        return false;
    }
    return true;
}

bool CharacteristicsCurvePage::validateTableData(QTableWidget* table)
{
    return validNodes(table).has_value();
}

/// The nodes of a table, to be computed, drawn and saved as they are now; nothing, and the operator is told why, if
/// they break a rule.
std::optional<QList<QPointF>> CharacteristicsCurvePage::validNodes(QTableWidget* table)
{
    const QVector<std::optional<QPointF>> rows = curvetable::enteredNodes(table);
    const auto fault = firstFault(rows);
    if (!fault) {
        QList<QPointF> nodes;
        for (const std::optional<QPointF>& row : rows) {
            nodes.append(*row);
        }
        return nodes;
    }
    if (fault->kind == NodeFault::Kind::TooFew) {
        tellOperator(pendix::warning, tr("Validation failed,The table requires at least two rows of data!"));
    } else if (fault->kind == NodeFault::Kind::NotRising) {
        tellOperator(pendix::warning, tr("The data in line %1 must be greater than the data in row %2!")
                                          .arg(QString::number(fault->row), QString::number(fault->row - 1)));
    }
    return {};
}

/// Has the controller compute the line through nodes and draws both. False if the page has gone meanwhile.
bool CharacteristicsCurvePage::computeAndDraw(const CurveTab& tab, const QList<QPointF>& nodes)
{
    const Business::Watch watch = m_business.watch();
    const QJsonArray result =
        controller::sendCommand(this, curveCommand(names::command::kComputeCurve, *tab.curve, nodes));
    if (!watch.ownerLives()) {
        return false;
    }
    CurveLine line;
    parseJsonRetArray(result, line.intercept, line.slope);
    draw(tab.table, tab.chart, nodes, line);
    return true;
}

/// The same with what a table holds. False if the page has gone meanwhile, or if the nodes break a rule.
bool CharacteristicsCurvePage::computeEntered(const CurveTab& tab)
{
    const auto nodes = validNodes(tab.table);
    return nodes && computeAndDraw(tab, *nodes);
}

void CharacteristicsCurvePage::computeNow(const CurveTab& tab)
{
    conduct([this, &tab](const Business::Turn& /*turn*/) {
        computeEntered(tab);
        return Fields::Reread;
    });
}

void CharacteristicsCurvePage::computeDrawPowerChart()
{
    computeNow(m_tabs.at(Power));
}

void CharacteristicsCurvePage::computeDrawFeedspeedChart()
{
    computeNow(m_tabs.at(Feed));
}

void CharacteristicsCurvePage::computeDrawFrequencyChart()
{
    computeNow(m_tabs.at(Frequency));
}

void CharacteristicsCurvePage::computeDrawDutycycleChart()
{
    computeNow(m_tabs.at(DutyCycle));
}

void CharacteristicsCurvePage::compute(const CurveTab& tab)
{
    conduct([this, &tab](const Business::Turn& /*turn*/) {
        if (mayChange()) {
            computeEntered(tab);
        }
        return Fields::Reread;
    });
}

void CharacteristicsCurvePage::save(const CurveTab& tab)
{
    conduct([this, &tab](const Business::Turn& turn) { return saveNow(tab, turn); });
}

CharacteristicsCurvePage::Fields CharacteristicsCurvePage::saveNow(const CurveTab& tab, const Business::Turn& turn)
{
    if (!mayChange()) {
        return Fields::Keep;
    }
    // One snapshot: what is judged is what is drawn and sent.
    const auto nodes = validNodes(tab.table);
    if (!nodes || !computeAndDraw(tab, *nodes) || !mayChange()) {
        return Fields::Keep;
    }
    const QString command = QLatin1String(*tab.curve->save);
    const QJsonArray result = controller::sendCommand(this, curveCommand(*tab.curve->save, *tab.curve, *nodes));
    if (turn.ownerLives()) {
        checkSaveResult(result, command);
    }
    return outcomeOf(result, command).kind == Outcome::Kind::Done ? Fields::Reread : Fields::Keep;
}

void CharacteristicsCurvePage::checkSaveResult(const QJsonArray& result, const QString& key)
{
    reportOutcome(outcomeOf(result, key),
                  {tr("Saved successfully"), tr("Save failed. Please check the parameter configuration."),
                   QStringLiteral("CharacteristicsCurvePage::checkSaveResult failed. ")},
                  key);
}

void CharacteristicsCurvePage::cancel(const CurveTab& tab)
{
    conduct([this, &tab](const Business::Turn& turn) {
        if (loadFromController(turn)) {
            if (tab.chart->hasLine()) {
                computeEntered(tab);
            }
            if (turn.ownerLives()) {
                tellOperator(pendix::information, tr("Cancel successful"));
            }
        }
        return Fields::Reread;
    });
}
