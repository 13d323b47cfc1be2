#include "tests/fakehost.h"

#include <QWidget>

namespace
{

void checkTarget(const QString& plugin)
{
    if (plugin != "Corvane") {
        qFatal("call for another plug-in: %s", qPrintable(plugin));
    }
}

} // namespace

FakeHost::FakeHost()
{
    pendix::installHost(this);
}

FakeHost::~FakeHost()
{
    delete centerWidget;
    delete statusBar;
}

QStringList FakeHost::sent() const
{
    QStringList texts;
    for (const auto& command : commands) {
        texts.append((command.first + ' ' + command.second.toVariant().toString()).trimmed());
    }
    return texts;
}

QStringList FakeHost::told() const
{
    QStringList texts;
    for (const Message& message : messages) {
        texts.append(QStringLiteral("%1|%2").arg(message.level).arg(message.text));
    }
    return texts;
}

QString FakeHost::lastMessage() const
{
    return told().value(messages.size() - 1);
}

QStringList FakeHost::warnings() const
{
    QStringList found;
    for (const pendix::LogStatement& statement : logs) {
        if (statement.tag.startsWith("[W|")) {
            found.append(statement.items.join('|'));
        }
    }
    return found;
}

void FakeHost::forget()
{
    reads.clear();
    commands.clear();
    senders.clear();
    messages.clear();
    logs.clear();
    calls.clear();
}

void FakeHost::called(const char* call)
{
    if (onCall) {
        onCall(QLatin1String(call));
    }
}

QJsonArray FakeHost::answer(const QString& command, const QJsonValue& code)
{
    return {QJsonObject{{"Corvane", QJsonObject{{command, QJsonObject{{"return", code}}}}}}};
}

QJsonArray FakeHost::execute(QObject* sender, const QString& command, const QJsonValue& value)
{
    commands.append({command, value});
    senders.append(sender);
    called("command");
    const QJsonValue success = command == "set_weld_enable" ? QJsonValue(true) : QJsonValue(0);
    return answers.value(command, answer(command, success));
}

QJsonArray FakeHost::commandCustomData(QObject* sender, const QString& plugin, const QJsonObject& command)
{
    checkTarget(plugin);
    const QString name = command.size() == 1 ? command.constBegin().key() : QStringLiteral("<not one member>");
    return execute(sender, name, command.value(name));
}

QJsonArray FakeHost::commandCustomData(QObject* sender, const QString& plugin, const QString& command,
                                       const QString& value)
{
    checkTarget(plugin);
    return execute(sender, command, value);
}

QJsonValue FakeHost::getVexaServiceData(const QString& name)
{
    reads.append(name);
    called("read");
    return nodes.value(name, QJsonValue::Undefined);
}

void FakeHost::disconnectVexaServiceData(const QString& plugin, const QString& data, const QString& extra)
{
    calls.append(QStringLiteral("disconnectVexaServiceData %1 %2 '%3'").arg(plugin, data, extra));
}

QJsonValue FakeHost::getNodeData(const QString& name)
{
    reads.append(name);
    return nodes.value(name, QJsonValue::Undefined);
}

QHash<QString, QStringList> FakeHost::getRegisterHash()
{
    called("registers");
    QHash<QString, QStringList> hash;
    for (const QString& name : qAsConst(registerNames)) {
        hash.insert(name, {});
    }
    return hash;
}

void FakeHost::addCurrentPoint(const QString& name, bool overwrite, const QString& tool, const QString& wobj)
{
    called("store");
    calls.append(QStringLiteral("addCurrentPoint %1 %2 %3 %4").arg(name, overwrite ? "true" : "false", tool, wobj));
    if (!io["point"].contains(name)) {
        io["point"].append(name);
    }
}

void FakeHost::throwLog(const QString& source, pendix::enThrowLogLevel logLevel, const QString& text)
{
    checkTarget(source);
    called("message");
    messages.append({source, static_cast<int>(logLevel), text});
}

void FakeHost::createCenterWidget(const QString& plugin, QWidget* widget)
{
    calls.append(QStringLiteral("createCenterWidget %1").arg(plugin));
    centerWidget = widget;
    called("create");
}

void FakeHost::createStatusBar(const QString& plugin, QWidget* widget, int position)
{
    calls.append(QStringLiteral("createStatusBar %1 %2").arg(plugin).arg(position));
    statusBar = widget;
    called("create");
}

void FakeHost::createPhyButtonList(const QString& plugin, const QString& name,
                                   const QList<pendix::PhysicalButton>& first,
                                   const QList<pendix::PhysicalButton>& second, const QStringList& selector)
{
    firstButtons = first;
    secondButtons = second;
    calls.append(QStringLiteral("createPhyButtonList %1 %2 '%3'").arg(plugin, name, selector.join("', '")));
    called("create");
}

void FakeHost::changePhyButtonStatus(const QString& plugin, const QString& name, bool on)
{
    calls.append(QStringLiteral("changePhyButtonStatus %1 %2 %3").arg(plugin, name, on ? "true" : "false"));
    called("create");
}

void FakeHost::changeModelWindowStatus(const QString& plugin, bool modal)
{
    calls.append(QStringLiteral("changeModelWindowStatus %1 %2").arg(plugin, modal ? "true" : "false"));
}

int FakeHost::pluginNoUniqueWidget(const QString& plugin, QWidget*& out)
{
    called("neighbour");
    calls.append(QStringLiteral("pluginNoUniqueWidget %1").arg(plugin));
    out = otherWidget ? otherWidget() : nullptr;
    return out != nullptr ? 0 : -1;
}
