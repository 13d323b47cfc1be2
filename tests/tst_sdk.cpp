#include "pendix/hostui.h"
#include "pendix/log.h"
#include "tests/fakehost.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

using namespace pendix;

class TestSdk : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void noHost();
    void logFile();
    void pluginRegister();
    void instructionRegistry();
};

void TestSdk::cleanup()
{
    RlRegistry::instance().clear();
    unregisterPlugin("probe");
}

void TestSdk::noHost()
{
    for (const char* call :
         {"pendixInterface", "ThrowLog", "CreateCenterWidget", "CreateStatusBar", "CreatePhyButtonList",
          "ChangePhyButtonStatus", "ChangeModelWindowStatus", "GetPluginNoUniqueWidget", "log statement"}) {
        QTest::ignoreMessage(QtWarningMsg, QByteArray("pendix: ") + call + " without an installed host");
    }
    QVERIFY(pendixInterface() == nullptr);
    ThrowLog("probe", pendix::error, "text");
    CreateCenterWidget("probe", nullptr);
    CreateStatusBar("probe", nullptr, 1);
    CreatePhyButtonList("probe", "probe", {}, {}, {});
    ChangePhyButtonStatus("probe", "probe", true);
    ChangeModelWindowStatus("probe", false);
    QWidget* out = reinterpret_cast<QWidget*>(this);
    QCOMPARE(GetPluginNoUniqueWidget("probe", out), 0);
    QVERIFY(out == nullptr);
    QLog("", "", "") << "text";
}

void TestSdk::logFile()
{
    FakeHost host;
    const QTemporaryDir folder;
    const QString path = folder.filePath("new/log");
    const auto say = [&path](const char* item) { QFLog("\033[36m", "[I|now]", "", path, "log") << item << 3; };
    const auto kept = [](const QString& name) {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("none");
    };
    say("sec\"ond");
    // A process that is killed right after a line leaves the line.
    const pid_t child = fork();
    if (child == 0) {
        say("killed");
        raise(SIGKILL);
    }
    QCOMPARE(waitpid(child, nullptr, 0), child);
    QCOMPARE(kept(path + ".log"), QByteArray("[I|now] sec\"ond 3 \n[I|now] killed 3 \n"));
    // Rotated: what comes next goes into the new file. Deleted with its folder: both are made again.
    QVERIFY(QFile::rename(path + ".log", path + ".1") && QFile(path + ".log").open(QIODevice::WriteOnly));
    say("rotated");
    QVERIFY(kept(path + ".1").endsWith("killed 3 \n"));
    QCOMPARE(kept(path + ".log"), QByteArray("[I|now] rotated 3 \n"));
    QVERIFY(QDir(folder.filePath("new")).removeRecursively());
    say("deleted");
    QCOMPARE(kept(path + ".log"), QByteArray("[I|now] deleted 3 \n"));
    QCOMPARE(host.logs.first().filePath, path);
    // Where no folder can be made the console and the host still get the line.
    const int told = host.logs.size();
    QFLog("", "tag", "", path + ".log/log", "log") << "text";
    QCOMPARE(host.logs.size(), told + 1);
}

void TestSdk::pluginRegister()
{
    PluginRegister* registry = pendixFactory();
    registry->regist("probe", nullptr);
    QVERIFY(registry->create("probe", nullptr) == nullptr);
    registry->regist("probe", [](QObject* parent) { return new PluginBase(parent); });
    QCOMPARE(registry->names().count("probe"), 1);
    QObject parent;
    PluginBase* plugin = registry->create("probe", &parent);
    QVERIFY(plugin != nullptr && plugin->parent() == &parent);
    QVERIFY(plugin->defaultGlobalSheet() && plugin->pluginLabel().isEmpty());
    QVERIFY(registry->create("unknown", nullptr) == nullptr);
    unregisterPlugin("probe");
    QVERIFY(!registry->names().contains("probe"));
}

void TestSdk::instructionRegistry()
{
    bool built = false;
    {
        RLManager manager;
        manager.createTypeKey("A");
        manager.createSkeleton("A", "A;");
        manager.createInsDescribe("A", "about A");
        manager.createPattern("A", "^A$");
        manager.createInsDefault("A", "A();");
        manager.createPropertyWidget("A", [] { return new RLContentBase; });
        manager.createTypeToGroup("G", "A");
        const auto create = [&built] {
            built = true;
            return new RLContentBase;
        };
        manager.createData("G", {"B", "about B", "B;", false, {{"Pos", 3, 0, {}, 0, 999}}}, create, nullptr);
        manager.createGroups("Group", "G");
    }
    const RlRegistry& registry = RlRegistry::instance();
    const QList<RlInstruction> instructions = registry.instructions();
    QCOMPARE(instructions.size(), 2);
    const RlInstruction& a = instructions[0];
    QCOMPARE(QStringList({a.name, a.skeleton, a.description, a.pattern, a.defaultLine, a.group}),
             QStringList({"A", "A;", "about A", "^A$", "A();", "G"}));
    QVERIFY(!a.hasSpec && a.propertyFactory && !a.insertFactory);
    const RlInstruction& b = instructions[1];
    QVERIFY(b.hasSpec && !b.spec.useDefaultEditor && b.group == "G" && b.skeleton == "B;");
    QCOMPARE(b.spec.fields.value(0).maximum, 999);
    // The factories outlive the manager.
    const std::unique_ptr<RLContentBase> editor(b.insertFactory());
    QVERIFY(built && !editor->CheckInsert() && !editor->CheckReplace() && editor->ToString().isEmpty());
    QCOMPARE(registry.groupTitle("G"), QString("Group"));
    QCOMPARE(registry.calls().first(), QString("createTypeKey A"));
    QCOMPARE(registry.calls().last(), QString("createGroups G"));
}

QTEST_MAIN(TestSdk)
#include "tst_sdk.moc"
