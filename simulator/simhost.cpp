#include "simulator/simhost.h"

#include "simulator/registerlist.h"
#include "simulator/widgetexchange.h"

#include <QWidget>

namespace sim
{

namespace
{

/// The level letter of a log tag such as "[E|11/22 10:15:00.123]".
QString logLevel(const QString& tag)
{
    const QString letter = tag.mid(1, tag.indexOf(QLatin1Char('|')) - 1);
    const QHash<QString, QString> names = {{QStringLiteral("I"), SimHost::tr("information")},
                                           {QStringLiteral("W"), SimHost::tr("warning")},
                                           {QStringLiteral("E"), SimHost::tr("error")},
                                           {QStringLiteral("S"), SimHost::tr("trace")},
                                           {QStringLiteral("D"), SimHost::tr("debug")}};
    return names.value(letter, letter);
}

QString onOff(bool on)
{
    return on ? SimHost::tr("on") : SimHost::tr("off");
}

QStringList labels(const QList<pendix::PhysicalButton>& buttons)
{
    QStringList texts;
    for (const pendix::PhysicalButton& button : buttons) {
        texts.append(SimHost::tr("%1 (%2 / %3)").arg(button.text, button.pressedImage, button.releasedImage));
    }
    return texts;
}

QString describe(const QObject* object)
{
    return object != nullptr ? QString::fromLatin1(object->metaObject()->className()) : SimHost::tr("nothing");
}

} // namespace

QString messageLevelName(int level)
{
    switch (level) {
    case pendix::information:
        return SimHost::tr("information");
    case pendix::warning:
        return SimHost::tr("warning");
    case pendix::error:
        return SimHost::tr("error");
    default:
        return QString::number(level);
    }
}

SimHost::SimHost(SimulatedController* controller, Journal* journal) : m_controller(controller), m_journal(journal)
{
    connect(controller, &SimulatedController::connectionChanged, this, [this](bool connected) {
        m_journal->addNotice({}, connected ? tr("controller connected") : tr("controller disconnected"));
        if (connected) {
            announceConnection();
        }
    });
    connect(controller, &SimulatedController::wireCutOff, this, [this] {
        m_journal->addNotice(tr("warning"), tr("the line went down while the wire was running: the controller stopped "
                                               "the wire"));
    });
    pendix::installHost(this);
}

SimHost::~SimHost()
{
    deleteUntaken(m_given.values());
}

/// A widget that no window took is still this host's.
void SimHost::deleteUntaken(const QList<QPointer<QWidget>>& widgets)
{
    for (const QPointer<QWidget>& widget : widgets) {
        if (widget != nullptr && widget->parent() == nullptr) {
            delete widget;
        }
    }
}

void SimHost::withdraw(const QString& plugin)
{
    m_pages.remove(plugin);
    m_buttons.withdraw(plugin);
    setModal(plugin, false);
    emit pluginWithdrawn(plugin);
    deleteUntaken(m_given.values(plugin));
}

void SimHost::announceConnection()
{
    m_journal->addNotice({}, tr("sigNetworkConnect"));
    emit sigNetworkConnect();
}

QJsonArray SimHost::commandCustomData(QObject* sender, const QString& plugin, const QJsonObject& command)
{
    const QStringList names = command.keys();
    const QJsonValue argument = names.size() == 1 ? command.value(names.first()) : QJsonValue(command);
    const QString subject = names.isEmpty() ? tr("(no command)") : names.join(QLatin1String(", "));
    const int entry = m_journal->addCommand(plugin, subject, argument, describe(sender));
    if (!pendixFactory()->names().contains(plugin)) {
        m_journal->addNotice(tr("warning"),
                             tr("%1 is sent for \"%2\", a plug-in that is not known").arg(subject, plugin));
    }
    const SimulatedController::Execution execution = m_controller->execute(plugin, command);
    for (const QString& remark : execution.remarks) {
        m_journal->addNotice(tr("warning"), remark);
    }
    m_journal->addAnswer(entry, execution.answer);
    return execution.answer;
}

QJsonArray SimHost::commandCustomData(QObject* sender, const QString& plugin, const QString& command,
                                      const QString& value)
{
    return commandCustomData(sender, plugin, QJsonObject{{command, value}});
}

QJsonValue SimHost::getVexaServiceData(const QString& name)
{
    QJsonValue value = m_controller->published(name);
    m_journal->addRead(name, value);
    return value;
}

void SimHost::disconnectVexaServiceData(const QString& plugin, const QString& data, const QString& extra)
{
    m_journal->addHostCall(QStringLiteral("disconnectVexaServiceData"), tr("%1: %2 %3").arg(plugin, data, extra));
    m_subscriptions.remove({plugin, data});
}

void SimHost::subscribe(const QString& plugin, const QString& data)
{
    m_journal->addNotice({}, tr("%1 is subscribed to %2").arg(plugin, data));
    m_subscriptions.insert({plugin, data});
}

bool SimHost::isSubscribed(const QString& plugin, const QString& data) const
{
    return m_subscriptions.contains({plugin, data});
}

QJsonValue SimHost::getNodeData(const QString& name)
{
    QJsonValue value = m_controller->cell().hostSettings.value(name);
    m_journal->addRead(name, value);
    return value;
}

QStringList SimHost::readList(const QString& subject, const QStringList& names)
{
    QStringList result = m_controller->isConnected() ? names : QStringList();
    m_journal->addRead(subject, QJsonArray::fromStringList(result));
    return result;
}

QString SimHost::readName(const QString& subject, const QString& name)
{
    QString result = m_controller->isConnected() ? name : QString();
    m_journal->addRead(subject, result);
    return result;
}

QStringList SimHost::getIOByType(const QString& type)
{
    return readList(tr("I/O signals %1").arg(type), m_controller->cell().io.value(type));
}

QHash<QString, QStringList> SimHost::getRegisterHash()
{
    QStringList names;
    for (const QJsonValue entry : m_controller->registers()) {
        names.append(nameOfRegister(entry));
    }
    QHash<QString, QStringList> hash;
    for (const QString& name : readList(tr("register names"), names)) {
        hash.insert(name, {});
    }
    return hash;
}

QJsonValue SimHost::getRegisterValue()
{
    QJsonValue value =
        m_controller->isConnected() ? QJsonValue(m_controller->registers()) : QJsonValue(QJsonValue::Undefined);
    m_journal->addRead(tr("register descriptions"), value);
    return value;
}

bool SimHost::getRobotEleStatus()
{
    m_journal->addRead(tr("robot power"), m_controller->isPowered());
    return m_controller->isPowered();
}

int SimHost::getUserOperateLevel()
{
    m_journal->addRead(tr("operator level"), m_controller->operatorLevel());
    return m_controller->operatorLevel();
}

QStringList SimHost::getPointNameList()
{
    QStringList names;
    for (const RobotPoint& point : m_controller->points()) {
        names.append(point.name);
    }
    return readList(tr("points"), names);
}

void SimHost::addCurrentPoint(const QString& name, bool overwrite, const QString& tool, const QString& wobj)
{
    m_journal->addHostCall(QStringLiteral("addCurrentPoint"),
                           tr("%1, overwrite %2, tool %3, work object %4").arg(name, onOff(overwrite), tool, wobj));
    const QString obstacle = m_controller->addPoint(name, overwrite, tool, wobj);
    if (!obstacle.isEmpty()) {
        m_journal->addNotice(tr("warning"), tr("no point stored: %1").arg(obstacle));
    }
}

QStringList SimHost::getToolList()
{
    return readList(tr("tools"), m_controller->cell().tools);
}

QStringList SimHost::getWobjList()
{
    return readList(tr("work objects"), m_controller->cell().wobjs);
}

QStringList SimHost::getSpeedList()
{
    return readList(tr("speeds"), m_controller->cell().speeds);
}

QStringList SimHost::getZoneList()
{
    return readList(tr("zones"), m_controller->cell().zones);
}

QString SimHost::getCurTool()
{
    return readName(tr("current tool"), m_controller->cell().currentTool);
}

QString SimHost::getCurWobj()
{
    return readName(tr("current work object"), m_controller->cell().currentWobj);
}

void SimHost::throwLog(const QString& source, pendix::enThrowLogLevel level, const QString& text)
{
    m_journal->addMessage(source, messageLevelName(level), text);
    emit operatorMessage(source, level, text);
}

void SimHost::createCenterWidget(const QString& plugin, QWidget* widget)
{
    m_journal->addHostCall(QStringLiteral("CreateCenterWidget"), tr("%1: %2").arg(plugin, describe(widget)));
    if (widget != nullptr) {
        m_given.insert(plugin, widget);
        m_pages.insert(plugin, widget);
        emit pageGiven(plugin);
    }
}

void SimHost::createStatusBar(const QString& plugin, QWidget* widget, int position)
{
    m_journal->addHostCall(QStringLiteral("CreateStatusBar"),
                           tr("%1: %2 at position %3").arg(plugin, describe(widget), QString::number(position)));
    if (widget != nullptr) {
        m_given.insert(plugin, widget);
        emit statusItemGiven(plugin, widget, position);
    }
}

void SimHost::createPhyButtonList(const QString& plugin, const QString& name,
                                  const QList<pendix::PhysicalButton>& first,
                                  const QList<pendix::PhysicalButton>& second, const QStringList& selector)
{
    const QString separator = QStringLiteral(", ");
    m_journal->addHostCall(QStringLiteral("CreatePhyButtonList"),
                           tr("%1, %2: first list %3; second list %4; selector \"%5\"")
                               .arg(plugin, name, labels(first).join(separator), labels(second).join(separator),
                                    selector.join(separator)));
    m_buttons.give({plugin, name, first, second});
}

void SimHost::changePhyButtonStatus(const QString& plugin, const QString& name, bool on)
{
    m_journal->addHostCall(QStringLiteral("ChangePhyButtonStatus"), tr("%1, %2: %3").arg(plugin, name, onOff(on)));
    if (!m_buttons.setOn(plugin, name, on)) {
        m_journal->addNotice(tr("warning"), tr("%1 has given no pendant buttons named %2").arg(plugin, name));
    }
}

void SimHost::changeModelWindowStatus(const QString& plugin, bool modal)
{
    m_journal->addHostCall(QStringLiteral("ChangeModelWindowStatus"), tr("%1: modal %2").arg(plugin, onOff(modal)));
    setModal(plugin, modal);
}

void SimHost::setModal(const QString& plugin, bool modal)
{
    if (isModal(plugin) == modal) {
        return;
    }
    if (modal) {
        m_modal.insert(plugin);
    } else {
        m_modal.remove(plugin);
    }
    emit modalChanged(plugin, modal);
}

int SimHost::pluginNoUniqueWidget(const QString& plugin, QWidget*& out)
{
    const WidgetAnswer answer = noUniqueWidget(plugin);
    out = answer.widget;
    m_journal->addHostCall(QStringLiteral("GetPluginNoUniqueWidget"),
                           tr("%1: %2 (%3)").arg(plugin, answer.words, QString::number(answer.code)));
    if (!answer.fault.isEmpty()) {
        m_journal->addNotice(tr("warning"), answer.fault);
    }
    return answer.code;
}

void SimHost::log(const pendix::LogStatement& statement)
{
    m_journal->addLog(statement.filePath.isEmpty() ? tr("console only") : QString(), logLevel(statement.tag),
                      statement.items.join(QLatin1Char(' ')));
}

} // namespace sim
