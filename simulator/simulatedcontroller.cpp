#include "simulator/simulatedcontroller.h"

#include "simulator/nodeschema.h"

#include <QEventLoop>
#include <QTimer>

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

SimulatedController::SimulatedController(Cell cell, QObject* parent) : QObject(parent), m_cell(std::move(cell))
{
    m_data.nodes = m_cell.nodes;
    m_data.values = m_cell.values;
    m_data.weldEnabled = mainEnable(m_data.nodes);
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

void SimulatedController::addPoint(const QString& name)
{
    if (m_connected && !name.isEmpty() && !m_cell.points.contains(name)) {
        m_cell.points.append(name);
        emit dataChanged();
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
    if (!wait(plan.delayMs)) {
        execution->remarks.append(tr("%1: the line went down, or the pendant was closed, before the answer").arg(name));
        return;
    }
    CommandOutcome outcome;
    const AnswerKind kind = plan.kind;
    if (controllerActs(kind)) {
        outcome = row->execute(m_data, argument);
        if (!outcome.done) {
            execution->remarks.append(tr("%1 not executed: %2").arg(name, outcome.reason));
        }
        if (kind != AnswerKind::Proper && kind != AnswerKind::OtherFirst) {
            execution->remarks.append(tr("%1: the answer was forced: %2").arg(name, answerLabel(kind)));
        }
    } else {
        execution->remarks.append(tr("%1 not executed; the answer was forced: %2").arg(name, answerLabel(kind)));
    }
    for (const QJsonValue element : shapeAnswer(kind, plugin, name, outcome.code)) {
        execution->answer.append(element);
    }
    if (outcome.done) {
        emit dataChanged();
        emit nodesStored();
    }
}

bool SimulatedController::wait(int delayMs)
{
    if (delayMs <= 0) {
        return true;
    }
    QTimer timer;
    timer.setSingleShot(true);
    QEventLoop loop;
    connect(&timer, &QTimer::timeout, &loop, &QEventLoop::quit);
    bool lineWentDown = false;
    connect(this, &SimulatedController::connectionChanged, &loop, [&] {
        lineWentDown = true;
        loop.quit();
    });
    timer.start(delayMs);
    // Ends early when the program does: a quitting application leaves all its event loops.
    loop.exec();
    return !timer.isActive() && !lineWentDown;
}

void SimulatedController::setConnected(bool connected)
{
    if (m_connected != connected) {
        m_connected = connected;
        emit connectionChanged(connected);
    }
}

void SimulatedController::setPowered(bool powered)
{
    if (m_powered != powered) {
        m_powered = powered;
        emit poweredChanged(powered);
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
