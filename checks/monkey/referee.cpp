#include "checks/monkey/referee.h"

#include "checks/monkey/curverules.h"
#include "checks/monkey/iorules.h"
#include "simulator/schemavalidator.h"
#include "simulator/weldcommands.h"

#include <QJsonObject>
#include <QSpinBox>

#include <algorithm>

namespace
{

constexpr int kLowestChangingLevel = 3;

const QString kEnable = QStringLiteral("set_weld_enable");
const QString kSetSettings = QStringLiteral("set_weld_setting_config");
const QString kSetMapping = QStringLiteral("set_weld_io_config");
const QString kFeedWire = QStringLiteral("set_weld_feed_wire");
const QString kRetractWire = QStringLiteral("set_weld_retract_wire");
const QString kComputeCurve = QStringLiteral("compute_curve_config");
const QString kSetCurve = QStringLiteral("set_weld_curve_");
constexpr char kCurvePage[] = "CharacteristicsCurvePage";
const QString kMapping = QStringLiteral("weld_io_config");
const QString kCurves = QStringLiteral("weld_curve_config");
const QString kMonitor = QStringLiteral("start_laserweld_monitor");
const QString kRefusal = QStringLiteral("Insufficient user permissions!");

bool movesWire(const QString& command)
{
    return command == kFeedWire || command == kRetractWire;
}

/// What a page's fields hold, by the members that they are named after: "spinBox_laser_power" holds "laser_power".
QMap<QString, int> fieldsOf(const QObject* page)
{
    QMap<QString, int> fields;
    for (const QSpinBox* field : page->findChildren<QSpinBox*>()) {
        fields.insert(field->objectName().section(QLatin1Char('_'), 1), field->value());
    }
    return fields;
}

/// Whether "Weld Setup" enables welding, by what that does to a field of its own: it is locked.
bool isWeldingEnabled(const QObject* neighbour)
{
    const auto* page = qobject_cast<const QWidget*>(neighbour);
    const auto* field =
        page != nullptr ? page->window()->findChild<QSpinBox*>(QStringLiteral("spinBox_laser_power")) : nullptr;
    const QWidget* setup = field;
    while (setup != nullptr && !setup->inherits("WeldSettingPage")) {
        setup = setup->parentWidget();
    }
    if (setup == nullptr) {
        qFatal("the referee does not find the field of the laser's power");
    }
    return !field->isEnabledTo(setup);
}

} // namespace

Referee::Referee(Logbook* logbook) : m_logbook(logbook), m_actions(1)
{
    // A rule about a command that nobody sends under that name would never be broken.
    for (const QString& name : {kEnable, kSetSettings, kSetMapping, kFeedWire, kRetractWire, kComputeCurve, kMonitor}) {
        if (sim::findCommand(name) == nullptr) {
            qFatal("the referee judges %s, which the controller does not know", qPrintable(name));
        }
    }
}

void Referee::beginAction()
{
    if (m_actions.size() == 1) {
        m_toldMappings.remove(0, m_oldMappings);
        m_oldMappings = 0;
    }
    m_actions.emplace_back();
}

void Referee::shown(const QObject* widget)
{
    for (ActionState& action : m_actions) {
        action.shown.insert(widget);
    }
    if (widget->inherits(kCurvePage)) {
        m_oldMappings = m_toldMappings.size();
    }
}

void Referee::nodeAnswered(const QString& name, const QJsonValue& node)
{
    m_actions.back().asked = {false, {}, name};
    if (name == kMapping) {
        m_toldMappings.append(node);
    }
}

Referee::~Referee()
{
    for (const QString& wire : m_running.keys()) {
        m_logbook->complain(QStringLiteral("%1 is left running at the day's end").arg(wire));
    }
}

void Referee::levelAnswered(int level)
{
    m_actions.back().asked.level = level;
    m_actions.back().toldLevel = level;
    m_logbook->count(level < kLowestChangingLevel ? QStringLiteral("refused levels")
                                                  : QStringLiteral("sufficient levels"));
}

void Referee::registersAnswered(const QJsonValue& registers)
{
    otherCall();
    m_actions.back().toldRegisters = registers;
}

void Referee::commandLeaves(const QObject* sender, const QString& name, const QJsonValue& argument)
{
    m_logbook->count(QStringLiteral("commands"));
    ActionState& action = m_actions.back();
    if (!mayLeaveByItself(sender, name, argument)) {
        judgeLevel(name, action.asked.level);
    }
    if (sim::findCommand(name) != nullptr) {
        if (const auto fault = sim::SchemaValidator::of(name).fault(argument)) {
            m_logbook->complain(QStringLiteral("%1 was sent, and %2").arg(name, fault->toString()));
        }
    }
    if (name == kEnable) {
        if (!action.asked.unpowered) {
            m_logbook->complain(
                QStringLiteral("%1 was sent, and the robot's power was not asked for, or on").arg(name));
        }
        action.enabledWith = argument == QLatin1String("TRUE") ? fieldsOf(sender) : QMap<QString, int>();
    }
    if (name == kSetSettings) {
        judgeSettings(argument.toObject());
    }
    if (name == kSetMapping) {
        judgeMapping(sender, argument.toObject());
    }
    if (movesWire(name)) {
        judgeWire(name, argument.toBool());
    }
    if (name == kComputeCurve || name.startsWith(kSetCurve)) {
        judgeCurve(sender, name, argument.toObject());
    }
    action.computed = name == kComputeCurve ? argument : QJsonValue(QJsonValue::Undefined);
    otherCall();
}

bool Referee::mayLeaveByItself(const QObject* sender, const QString& name, const QJsonValue& argument) const
{
    // Lines that are drawn are computed again when their page is shown, and at "Cancel" as soon as the nodes are read.
    const ActionState& action = m_actions.back();
    if (name == kComputeCurve) {
        return sender != nullptr && sender->inherits(kCurvePage) && !action.asked.level &&
               (action.shown.contains(sender) || action.asked.node == kCurves);
    }
    // Everybody may look: the pendant starts the monitor's stream, whoever closes the monitor ends it.
    return name == kMonitor &&
           (argument == QJsonValue(false) || (sender != nullptr && sender->inherits("sim::MonitorOwner")));
}

void Referee::judgeLevel(const QString& what, std::optional<int> level)
{
    if (!level) {
        m_logbook->complain(QStringLiteral("%1 was sent without asking for the operator's level last").arg(what));
    } else if (*level < kLowestChangingLevel) {
        m_logbook->complain(QStringLiteral("%1 was sent at operator level %2").arg(what, QString::number(*level)));
    }
}

void Referee::judgeSettings(const QJsonObject& settings)
{
    if (settings.value(QLatin1String("feedback_delay")).toInt() <
        settings.value(QLatin1String("laser_check_out_time")).toInt()) {
        m_logbook->complain(QStringLiteral("settings were sent whose times contradict each other"));
    }
    QMap<QString, int>& enabledWith = m_actions.back().enabledWith;
    for (auto field = enabledWith.constBegin(); field != enabledWith.constEnd(); ++field) {
        if (settings.contains(field.key()) && settings.value(field.key()) != QJsonValue(field.value())) {
            m_logbook->complain(QStringLiteral("%1 was changed while welding was being enabled").arg(field.key()));
        }
    }
    enabledWith.clear();
}

void Referee::judgeMapping(const QObject* sender, const QJsonObject& mapping)
{
    m_logbook->count(QStringLiteral("mappings"));
    if (isWeldingEnabled(sender)) {
        m_logbook->complain(QStringLiteral("a mapping was sent while welding is enabled"));
    }
    const QString broken = brokenIoRule(mapping, m_actions.back().toldRegisters);
    if (!broken.isEmpty()) {
        m_logbook->complain(QStringLiteral("a mapping was sent, and %1").arg(broken));
    }
}

void Referee::judgeCurve(const QObject* sender, const QString& name, const QJsonObject& curve)
{
    const QString broken = brokenCurveRule(curve);
    if (!broken.isEmpty()) {
        m_logbook->complain(QStringLiteral("%1 was sent, and %2").arg(name, broken));
    }
    if (m_actions.back().asked.level) {
        judgePress(sender, name, curve);
    }
    if (name != kComputeCurve) {
        m_logbook->count(QStringLiteral("curves"));
        if (m_actions.back().computed != curve) {
            m_logbook->complain(QStringLiteral("%1 does not follow a computation of its nodes").arg(name));
        }
    }
}

void Referee::judgePress(const QObject* sender, const QString& name, const QJsonObject& curve)
{
    const auto isKnown = [&curve](const QJsonValue& mapping) { return isAssigned(curve, mapping); };
    if (std::none_of(m_toldMappings.cbegin(), m_toldMappings.cend(), isKnown)) {
        m_logbook->complain(QStringLiteral("%1 was sent, and its output is not in use").arg(name));
    }
    if (isWeldingEnabled(sender)) {
        m_logbook->complain(QStringLiteral("%1 was sent while welding is enabled").arg(name));
    }
    QStringList& sent = m_actions.back().sentAtPress;
    if (sent.contains(name)) {
        m_logbook->complain(QStringLiteral("%1 was sent twice at one press").arg(name));
    }
    sent.append(name);
}

void Referee::judgeWire(const QString& name, bool start)
{
    if (!start) {
        m_running.remove(name);
        return;
    }
    const int key = m_calledKeys.isEmpty() ? -1 : m_calledKeys.last();
    if (key < 0 || !m_fingers.at(key)) {
        m_logbook->complain(QStringLiteral("%1 starts the wire with no finger on the key").arg(name));
    }
    m_running.insert(name, key);
}

void Referee::beginWaiting(const QObject* sender)
{
    // A pendant button may come up while its press is under way; these have another sender.
    const bool isPage = sender != nullptr && sender->isWidgetType();
    if (isPage && m_waiting.contains(sender)) {
        m_logbook->complain(QStringLiteral("%1 sent a command while another one was under way")
                                .arg(QLatin1String(sender->metaObject()->className())));
    }
    m_waiting.append(isPage ? sender : nullptr);
}

void Referee::pointLeaves(const QString& name, bool overwrite)
{
    m_logbook->count(QStringLiteral("points"));
    judgeLevel(QStringLiteral("a point"), m_actions.back().toldLevel);
    if (name.trimmed().isEmpty() || overwrite) {
        m_logbook->complain(QStringLiteral("a point \"%1\" was to be stored, or one replaced").arg(name));
    }
}

void Referee::told(const QString& source, int level, const QString& text)
{
    const QString known = m_texts.find(source, text);
    if (known.isEmpty()) {
        m_logbook->complain(QStringLiteral("the operator was told what %1 has no such text for: %2").arg(source, text));
        return;
    }
    if (m_levelOfText.value(known, level) != level) {
        m_logbook->complain(
            QStringLiteral("a message comes at level %1, and came at another: %2").arg(QString::number(level), text));
    }
    m_levelOfText.insert(known, level);
    m_logbook->used(QStringLiteral("message %1 %2").arg(QString::number(level), known));

    const std::optional<int> answered = m_actions.back().asked.level;
    const bool isRefused = known == kRefusal && answered && *answered < kLowestChangingLevel;
    if (isRefused && !m_calledKeys.isEmpty() && !m_fingers.at(m_calledKeys.last())) {
        for (const QString& wire : m_running.keys(m_calledKeys.last())) {
            m_running.remove(wire);
        }
    }
}

int Referee::addKey()
{
    m_fingers.append(false);
    return m_fingers.size() - 1;
}

void Referee::keyTold(int key, bool down)
{
    m_fingers[key] = down;
    m_calledKeys.append(key);
}

void Referee::keyDone()
{
    m_calledKeys.removeLast();
    // What one handler has left undone, one further out may still do.
    for (auto wire = m_running.begin(); m_calledKeys.isEmpty() && wire != m_running.end();) {
        if (wire.value() >= 0 && m_fingers.at(wire.value())) {
            ++wire;
            continue;
        }
        m_logbook->complain(QStringLiteral("%1 runs on: its key is up, and no stop was sent").arg(wire.key()));
        wire = m_running.erase(wire);
    }
}
