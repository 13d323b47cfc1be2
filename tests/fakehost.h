#ifndef TESTS_FAKEHOST_H
#define TESTS_FAKEHOST_H

#include "pendixhost/host.h"

#include <QMap>
#include <QPair>
#include <QPointer>
#include <QVector>

#include <functional>

/// A host for tests: records what the package sends and answers what the test scripts. Installs itself
/// for as long as it lives.
class FakeHost : public pendix::InterfaceManager, public pendix::Host
{
    Q_OBJECT

public:
    struct Message {
        QString source;
        int level = 0;
        QString text;
    };

    FakeHost();
    ~FakeHost() override;

    // Scripted by the test.
    QMap<QString, QJsonValue> nodes;   ///< service data and host settings by name; active "tool" and "wobj"
    QMap<QString, QStringList> io;     ///< signal names by type; "point" (stored ones too), "tool", "zone"...
    QJsonValue registers;              ///< register metadata
    QStringList registerNames;         ///< keys of the register hash
    int level = 3;                     ///< operator level
    bool powered = false;              ///< robot power
    QMap<QString, QJsonArray> answers; ///< result array by command name; else "return" 0 (true for enable)
    /// Runs inside a host call: "command", "level", "power", "read", "message", "io", "registers", "points", "store"
    /// (of a point), "names" (of tools and the like), "neighbour" (another plug-in's widget),
    /// "create" (what the plug-in hands over).
    std::function<void(const QString&)> onCall;
    std::function<QWidget*()> otherWidget; ///< what another plug-in offers; empty or null: nothing

    // Recorded, in order.
    QStringList reads;                            ///< names given to getVexaServiceData and getNodeData
    QVector<QPair<QString, QJsonValue>> commands; ///< command name and argument
    QVector<QObject*> senders;                    ///< sender of each command
    QVector<Message> messages;                    ///< operator messages
    QVector<pendix::LogStatement> logs;           ///< finished log statements
    QStringList calls;                            ///< the other calls, as "call plugin argument..."
    QList<pendix::PhysicalButton> firstButtons, secondButtons;
    QPointer<QWidget> centerWidget;
    QPointer<QWidget> statusBar;

    QStringList sent() const;     ///< the commands as "name argument", those with an object by name only
    QStringList told() const;     ///< the messages as "level|text"
    QString lastMessage() const;  ///< "level|text" of the last message, empty when there is none
    QStringList warnings() const; ///< the log statements of level warning, the items of each joined by "|"
    void forget();                ///< clears what is recorded
    /// A result array in which the plug-in answers one command.
    static QJsonArray answer(const QString& command, const QJsonValue& code);

    // InterfaceManager
    QJsonArray commandCustomData(QObject* sender, const QString& plugin, const QJsonObject& command) override;
    QJsonArray commandCustomData(QObject* sender, const QString& plugin, const QString& command,
                                 const QString& value) override;
    QJsonValue getVexaServiceData(const QString& name) override;
    void disconnectVexaServiceData(const QString& plugin, const QString& data, const QString& extra) override;
    QJsonValue getNodeData(const QString& name) override;
    QStringList getIOByType(const QString& type) override { return after("io", io.value(type)); }
    QHash<QString, QStringList> getRegisterHash() override;
    QJsonValue getRegisterValue() override { return after("registers", registers); }
    bool getRobotEleStatus() override { return after("power", powered); }
    int getUserOperateLevel() override { return after("level", level); }
    QStringList getPointNameList() override { return after("points", io.value("point")); }
    void addCurrentPoint(const QString& name, bool overwrite, const QString& tool, const QString& wobj) override;
    QStringList getToolList() override { return after("names", io.value("tool")); }
    QStringList getWobjList() override { return after("names", io.value("wobj")); }
    QStringList getSpeedList() override { return after("names", io.value("speed")); }
    QStringList getZoneList() override { return after("names", io.value("zone")); }
    QString getCurTool() override { return after("names", nodes.value("tool").toString()); }
    QString getCurWobj() override { return after("names", nodes.value("wobj").toString()); }

    // Host
    pendix::InterfaceManager* interfaceManager() override { return this; }
    void throwLog(const QString& source, pendix::enThrowLogLevel logLevel, const QString& text) override;
    void createCenterWidget(const QString& plugin, QWidget* widget) override;
    void createStatusBar(const QString& plugin, QWidget* widget, int position) override;
    void createPhyButtonList(const QString& plugin, const QString& name, const QList<pendix::PhysicalButton>& first,
                             const QList<pendix::PhysicalButton>& second, const QStringList& selector) override;
    void changePhyButtonStatus(const QString& plugin, const QString& name, bool on) override;
    void changeModelWindowStatus(const QString& plugin, bool modal) override;
    int pluginNoUniqueWidget(const QString& plugin, QWidget*& out) override;
    void log(const pendix::LogStatement& statement) override { logs.append(statement); }

private:
    void called(const char* call);
    /// What a call answers when everything that happens in it has happened.
    template <typename T>
    T after(const char* call, const T& answer)
    {
        called(call);
        return answer;
    }
    QJsonArray execute(QObject* sender, const QString& command, const QJsonValue& value);
};

/// A node, but for some members that are others or new.
inline QJsonObject changed(QJsonObject node, const QJsonObject& changes)
{
    for (auto change = changes.begin(); change != changes.end(); ++change) {
        node.insert(change.key(), change.value());
    }
    return node;
}

#endif
