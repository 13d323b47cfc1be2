#include "pendix/hostui.h"
#include "pendix/log.h"
#include "tests/fakehost.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace pendix;

class TestSdk : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void noHost();
    void logBothHalves();
    void logFolderThatCannotBeWritten();
    void pluginRegister();
    void instructionRegistry();
    void editorBase();
};

void TestSdk::cleanup()
{
    RlRegistry::instance().clear();
    unregisterPlugin("probe");
}

void TestSdk::noHost()
{
    const auto expectWarning = [](const char* call) {
        QTest::ignoreMessage(QtWarningMsg, QByteArray("pendix: ") + call + " without an installed host");
    };
    expectWarning("pendixInterface");
    QVERIFY(pendixInterface() == nullptr);
    expectWarning("ThrowLog");
    ThrowLog("probe", pendix::error, "text");
    expectWarning("CreateCenterWidget");
    CreateCenterWidget("probe", nullptr);
    expectWarning("CreateStatusBar");
    CreateStatusBar("probe", nullptr, 1);
    expectWarning("CreatePhyButtonList");
    CreatePhyButtonList("probe", "probe", {}, {}, {});
    expectWarning("ChangePhyButtonStatus");
    ChangePhyButtonStatus("probe", "probe", true);
    expectWarning("ChangeModelWindowStatus");
    ChangeModelWindowStatus("probe", false);
    expectWarning("GetPluginNoUniqueWidget");
    QWidget* out = reinterpret_cast<QWidget*>(this);
    QCOMPARE(GetPluginNoUniqueWidget("probe", out), 0);
    QVERIFY(out == nullptr);
    expectWarning("log statement");
    QLog("", "", "") << "text";
}

void TestSdk::logBothHalves()
{
    FakeHost host;
    QTemporaryDir folder;
    const QString path = folder.filePath("new/log");
    const QString tag = "[I|now]";
    QFLog("\033[36m", tag, "", path, "log") << "first" << QString("sec\"ond") << 3;
    QFLog("\033[36m", tag, "", path, "log") << "next";
    QFile file(path + ".log");
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("[I|now] first sec\"ond 3 \n[I|now] next \n"));
    QCOMPARE(host.logs.size(), 2);
    QCOMPARE(host.logs.first().filePath, path);
}

void TestSdk::logFolderThatCannotBeWritten()
{
    FakeHost host;
    QTemporaryDir folder;
    QFile obstacle(folder.filePath("file"));
    QVERIFY(obstacle.open(QIODevice::WriteOnly));
    QFLog("", "tag", "", folder.filePath("file/log"), "log") << "text";
    QCOMPARE(host.logs.size(), 1);
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
        RlCustomCommandSpec spec;
        QVERIFY(spec.useDefaultEditor);
        spec = {"B", "about B", "B;", false, {{"Pos", 3, 0, {}, 0, 999}}};
        manager.createData(
            "G", spec,
            [&built] {
                built = true;
                return new RLContentBase;
            },
            nullptr);
        manager.createGroups("Group", "G");
    }
    const QList<RlInstruction> instructions = RlRegistry::instance().instructions();
    QCOMPARE(instructions.size(), 2);
    const RlInstruction& a = instructions[0];
    QCOMPARE(QStringList({a.name, a.skeleton, a.description, a.pattern, a.defaultLine, a.group}),
             QStringList({"A", "A;", "about A", "^A$", "A();", "G"}));
    QVERIFY(!a.hasSpec && a.propertyFactory && !a.insertFactory);
    const RlInstruction& b = instructions[1];
    QVERIFY(b.hasSpec && !b.spec.useDefaultEditor && b.group == "G" && b.skeleton == "B;");
    QCOMPARE(b.spec.fields.value(0).maximum, 999);
    // The factories outlive the manager.
    delete b.insertFactory();
    QVERIFY(built);
    QCOMPARE(RlRegistry::instance().groupTitle("G"), QString("Group"));
    QCOMPARE(RlRegistry::instance().calls().first(), QString("createTypeKey A"));
    QCOMPARE(RlRegistry::instance().calls().last(), QString("createGroups G"));
}

void TestSdk::editorBase()
{
    RLContentBase editor;
    QVERIFY(!editor.CheckInsert() && !editor.CheckReplace() && editor.ToString().isEmpty());
}

QTEST_MAIN(TestSdk)
#include "tst_sdk.moc"
