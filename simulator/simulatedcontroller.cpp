#include "simulator/simulatedcontroller.h"

#include "simulator/confignodes.h"
#include "simulator/monitorstream.h"
#include "simulator/namecheck.h"
#include "simulator/registerlist.h"

#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace sim
{

namespace
{

bool mainEnable(const QJsonObject& nodes)
{
    return nodes.value(QLatin1String(node::kSetting)).toObject().value(QLatin1String(node::kMainEnable)).toBool();
}

} // namespace

SimulatedController::SimulatedController(Cell cell, QObject* parent)
    : QObject(parent), m_cell(std::move(cell)), m_points(m_cell.points), m_position(m_cell.position)
{
    m_data.nodes = m_cell.nodes;
    m_data.values = m_cell.values;
    m_data.weldEnabled = mainEnable(m_data.nodes);
}

QVariantMap SimulatedController::monitorValues() const
{
    if (!monitoring() || !m_connected) {
        return {};
    }
    return sim::monitorValues(
        {m_data.nodes, value(QLatin1String(node::kVirtualWelding)), consumables().wireSpeed(), consumables().now()});
}

void SimulatedController::setNodes(const QJsonObject& nodes)
{
    m_data.nodes = nodes;
    m_data.weldEnabled = mainEnable(nodes);
    emit dataChanged();
}

QJsonValue SimulatedController::published(const QString& name) const
{
    if (!m_connected) {
        return QJsonValue::Undefined;
    }
    if (m_data.values.contains(name)) {
        return m_data.values.value(name);
    }
    QJsonValue value = m_data.nodes;
    for (const QString& step : name.split(QLatin1Char('.'))) {
        value = value.toObject().value(step);
    }
    return value;
}

void SimulatedController::setValue(const QString& name, bool value)
{
    if (m_data.values.value(name) != QJsonValue(value)) {
        m_data.values.insert(name, value);
        emit dataChanged();
    }
}

int SimulatedController::placeOf(const QString& point) const
{
    const auto found = std::find_if(m_points.cbegin(), m_points.cend(),
                                    [&](const RobotPoint& candidate) { return candidate.name == point; });
    return static_cast<int>(found - m_points.cbegin());
}

QString SimulatedController::obstacleTo(const QString& name, bool overwrite, const QString& tool,
                                        const QString& wobj) const
{
    if (!m_connected) {
        return tr("no connection to the controller");
    }
    // What a file could not give back is not taken in.
    if (!isName(name)) {
        return tr("\"%1\" is no name (not empty, no blanks around it, no control characters)").arg(name);
    }
    const bool isThere = placeOf(name) < m_points.size();
    if (isThere && !overwrite) {
        return tr("the point \"%1\" is there already and was not to be overwritten").arg(name);
    }
    if (!isThere && m_points.size() >= kMostNames) {
        return tr("the controller has no room for more than %1 points").arg(kMostNames);
    }
    if (!m_cell.tools.contains(tool)) {
        return tr("the controller has no tool \"%1\"").arg(tool);
    }
    return m_cell.wobjs.contains(wobj) ? QString() : tr("the controller has no work object \"%1\"").arg(wobj);
}

QString SimulatedController::addPoint(const QString& name, bool overwrite, const QString& tool, const QString& wobj)
{
    QString obstacle = obstacleTo(name, overwrite, tool, wobj);
    if (obstacle.isEmpty()) {
        const int place = placeOf(name);
        if (place == m_points.size()) {
            m_points.append(RobotPoint());
        }
        m_points[place] = {name, m_position, tool, wobj};
        emit dataChanged();
        emit pointsChanged(place);
    } else {
        emit pointRefused(name, obstacle);
    }
    return obstacle;
}

QJsonArray SimulatedController::registers() const
{
    if (m_cell.changes.withdrawn.isEmpty() && m_cell.changes.access.isEmpty()) {
        return m_cell.registers;
    }
    QJsonArray published;
    for (int place = 0; place < m_cell.registers.size(); ++place) {
        if (isPublished(place)) {
            published.append(registerAt(place));
        }
    }
    return published;
}

QJsonObject SimulatedController::registerAt(int place) const
{
    QJsonObject entry = m_cell.registers.at(place).toObject();
    const auto changed = m_cell.changes.access.constFind(nameOfRegister(entry));
    if (changed != m_cell.changes.access.constEnd()) {
        entry.insert(QLatin1String(registermember::kAccess), *changed);
    }
    return entry;
}

bool SimulatedController::isPublished(int place) const
{
    return place >= 0 && place < m_cell.registers.size() &&
           !m_cell.changes.withdrawn.contains(nameOfRegister(m_cell.registers.at(place)));
}

void SimulatedController::setRegisterPublished(int place, bool published)
{
    if (place < 0 || place >= m_cell.registers.size() || isPublished(place) == published) {
        return;
    }
    const QString name = nameOfRegister(m_cell.registers.at(place));
    if (published) {
        m_cell.changes.withdrawn.remove(name);
    } else {
        m_cell.changes.withdrawn.insert(name);
    }
    emit dataChanged();
    emit registersChanged(place);
}

bool SimulatedController::setRegisterAccess(int place, const QString& access)
{
    // What a state file could not give back is not taken in.
    if (place < 0 || place >= m_cell.registers.size() || !accessWords().contains(access)) {
        return false;
    }
    const QJsonValue own = m_cell.registers.at(place);
    if (accessOf(registerAt(place)) == access) {
        return true;
    }
    if (accessOf(own) == access) {
        m_cell.changes.access.remove(nameOfRegister(own));
    } else {
        m_cell.changes.access.insert(nameOfRegister(own), access);
    }
    emit dataChanged();
    emit registersChanged(place);
    return true;
}

void SimulatedController::setPosition(const Pose& position)
{
    Pose bounded = position;
    for (const Coordinate& coordinate : kCoordinates) {
        double& number = bounded.*coordinate.value;
        number = qBound(-coordinate.limit, number, coordinate.limit);
    }
    if (!(m_position == bounded)) {
        m_position = bounded;
        emit positionChanged();
    }
}

void SimulatedController::setPlan(const QString& command, AnswerPlan plan)
{
    m_plans.insert(command, plan);
    emit planChanged(command);
}

SimulatedController::Execution SimulatedController::execute(const QString& plugin, const QJsonObject& command)
{
    Execution execution;
    for (auto member = command.constBegin(); member != command.constEnd(); ++member) {
        executeOne(plugin, member.key(), member.value(), &execution);
    }
    return execution;
}

void SimulatedController::executeOne(const QString& plugin, const QString& name, const QJsonValue& argument,
                                     Execution* execution)
{
    if (!m_connected) {
        execution->remarks.append(tr("%1: no connection to the controller").arg(name));
        return;
    }
    const CommandRow* row = findCommand(name);
    if (row == nullptr) {
        execution->remarks.append(tr("unknown command %1").arg(name));
        return;
    }
    const AnswerPlan plan = this->plan(name);
    const auto work = [&] { carryOut(*row, plan.kind, plugin, argument, execution); };
    if (!inItsTime(name, plan.delayMs, work)) {
        execution->remarks.append(tr("%1: the line went down, or the pendant was closed, before the answer").arg(name));
    }
}

void SimulatedController::carryOut(const CommandRow& row, AnswerKind kind, const QString& plugin,
                                   const QJsonValue& argument, Execution* execution)
{
    const QString name = QLatin1String(row.name);
    const bool monitored = monitoring();
    // Also a controller that does nothing may know what it would have said.
    WeldData data = m_data;
    const CommandOutcome outcome = row.execute(data, argument);
    const bool acts = controllerActs(kind);
    if (acts) {
        m_data = data;
        if (!outcome.done) {
            execution->remarks.append(tr("%1 not executed: %2").arg(name, outcome.reason));
        }
        if (kind != AnswerKind::Proper && kind != AnswerKind::OtherFirst) {
            execution->remarks.append(tr("%1: the answer was forced: %2").arg(name, answerLabel(kind)));
        }
    } else {
        execution->remarks.append(tr("%1 not executed; the answer was forced: %2").arg(name, answerLabel(kind)));
    }
    for (const QJsonValue element : shapeAnswer(kind, plugin, name, outcome.code, outcome.details)) {
        execution->answer.append(element);
    }
    if (acts && outcome.done) {
        emit dataChanged();
    }
    if (acts && outcome.done && row.node != nullptr) {
        emit nodesStored();
    }
    if (monitored != monitoring()) {
        emit monitoringChanged(monitoring());
    }
}

/// Does the work when the delay is over and comes back then; false when it came to nothing.
bool SimulatedController::inItsTime(const QString& command, int delayMs, const std::function<void()>& work)
{
    const QTimer* const former = m_waiting.value(command);
    const bool isBehind = former != nullptr && former->isActive();
    if (delayMs <= 0 && !isBehind) {
        work();
        return true;
    }
    // The work is the timer's, not this function's once the loop is left: a key that comes up while its press is still
    // being waited for sends from within that loop, and its command must not be carried out before the press.
    QTimer timer;
    timer.setSingleShot(true);
    timer.setTimerType(Qt::PreciseTimer);
    QEventLoop loop;
    bool done = false;
    connect(&timer, &QTimer::timeout, &loop, [&] {
        done = true;
        work();
        loop.quit();
    });
    connect(this, &SimulatedController::connectionChanged, &loop, [&] {
        timer.stop();
        loop.quit();
    });
    m_waiting.insert(command, &timer);
    timer.start(isBehind ? qMax(delayMs, former->remainingTime() + 1) : delayMs);
    // Ends early when the program does: a quitting application leaves all its event loops.
    loop.exec();
    m_waiting.insert(command, former);
    return done;
}

void SimulatedController::setConnected(bool connected)
{
    if (m_connected == connected) {
        return;
    }
    m_connected = connected;
    const bool isCutOff = !connected && consumables().wire() != Consumables::Wire::Stopped;
    m_data.consumables.stopWire();
    emit connectionChanged(connected);
    if (isCutOff) {
        emit wireCutOff();
    }
}

void SimulatedController::setPowered(bool powered)
{
    if (m_powered != powered) {
        m_powered = powered;
        emit poweredChanged(powered);
    }
}

void SimulatedController::setFontZoom(double zoom)
{
    const double bounded = qBound(kLowestFontZoom, zoom, kHighestFontZoom);
    if (fontZoom() != bounded) {
        m_cell.hostSettings.insert(QLatin1String(kFontZoom), bounded);
        emit fontZoomChanged(bounded);
    }
}

void SimulatedController::setOperatorLevel(int level)
{
    const int bounded = qBound(0, level, kHighestLevel);
    if (m_level != bounded) {
        m_level = bounded;
        emit operatorLevelChanged(bounded);
    }
}

} // namespace sim
