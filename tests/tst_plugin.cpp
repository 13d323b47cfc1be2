#include "tests/fakehost.h"

#include <QAbstractButton>
#include <QFile>
#include <QJsonArray>
#include <QJsonObject>
#include <QLabel>
#include <QPixmap>
#include <QTest>

#include <dlfcn.h>

#include <memory>

/// The library as a pendant loads it: opened, constructed through the registry, driven, unloaded.
class TestPlugin : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void lifecycle();
    void statusFollowsTheConnection();
    void cleanup();

private:
    QImage shown() const { return m_host->statusBar->findChild<QLabel*>("label")->pixmap(Qt::ReturnByValue).toImage(); }
    static QImage picture(const char* path)
    {
        return QPixmap(path).scaledToHeight(25, Qt::SmoothTransformation).toImage();
    }

    void* m_library = nullptr;
    std::unique_ptr<FakeHost> m_host;
    std::unique_ptr<pendix::PluginBase> m_plugin;
};

void TestPlugin::init()
{
    QVERIFY(!QFile::exists(":/png/LaserSwitchReal.png"));
    m_host = std::make_unique<FakeHost>();
    m_library = dlopen(CORVANE_MODULE, RTLD_NOW | RTLD_LOCAL);
    QVERIFY2(m_library != nullptr, dlerror());
    QCOMPARE(pendixFactory()->names(), QStringList{"Corvane"});
    QVERIFY(m_host->calls.isEmpty() && m_host->reads.isEmpty());
    m_plugin.reset(pendixFactory()->create("Corvane", nullptr));
}

void TestPlugin::cleanup()
{
    m_plugin.reset();
    m_host.reset();
    pendix::unregisterPlugin("Corvane");
    QCOMPARE(dlclose(m_library), 0);
    QVERIFY2(!QFile::exists(":/png/LaserSwitchReal.png"), "unloading takes the resources away");
}

void TestPlugin::lifecycle()
{
    const auto api = reinterpret_cast<int (*)()>(dlsym(m_library, "_ZN6pendix3apiEv"));
    QVERIFY(api != nullptr);
    QCOMPARE(api(), 1);
    QVERIFY(dlsym(m_library, "_Z28qInitResources_corvane_assetv") != nullptr);
    QVERIFY(dlsym(m_library, "_Z31qCleanupResources_corvane_assetv") != nullptr);
    // What the owner of a monitor dialog looks for.
    QVERIFY(dlsym(m_library, "corvaneCreateMonitor") && dlsym(m_library, "corvaneShowMonitorState"));

    QCOMPARE(m_plugin->pluginLabel(), QString("Laser Welding"));
    QVERIFY(!m_plugin->defaultGlobalSheet());
    m_host->nodes["laser_weld_data.virtual_welding_status"] = true;
    m_plugin->init();
    QCOMPARE(m_host->calls, QStringList({"createCenterWidget Corvane", "createPhyButtonList Corvane Corvane ''",
                                         "changePhyButtonStatus Corvane Corvane true", "createStatusBar Corvane 1"}));
    QCOMPARE(shown(), picture(":/png/LaserSwitchReal.png"));
    m_plugin->afterInit();
    QStringList steps;
    for (const pendix::LogStatement& statement : qAsConst(m_host->logs)) {
        QVERIFY(statement.tag.startsWith("[I|"));
        steps.append(statement.items.first());
    }
    QCOMPARE(steps,
             QStringList({"Corvane::iniUi()", "LaserWeldPage", "Corvane::init()", "Corvane::initPhysicalButton()",
                          "Corvane::initPhysicalButton()", "PendixDemo::initData()"}));
    m_plugin->render();
    m_plugin->idle();
    m_host->centerWidget->show();
    QVERIFY(!m_host->centerWidget->grab().isNull());
    QVERIFY(m_host->centerWidget->findChild<QWidget*>("WeldSettingPage")->isVisible());
    m_host->nodes["weld_curve_config"] =
        QJsonObject{{"laser_power_node", 2}, {"power_nodes_data", QJsonArray{QJsonArray{0, 0}, QJsonArray{1, 1}}}};
    m_host->nodes["weld_io_config"] = QJsonObject{{"power_enabled", true}, {"power_port", "AO1"}};
    for (auto* page : m_host->centerWidget->findChild<QWidget*>("wgtNav")->findChildren<QAbstractButton*>()) {
        page->click();
        auto* compute = m_host->centerWidget->findChild<QAbstractButton*>("pushButton_compute");
        if (compute->isVisible()) {
            compute->click();
        }
        QVERIFY(!m_host->centerWidget->grab().isNull());
    }
    QCOMPARE(m_host->sent(), QStringList{"compute_curve_config"});
    m_plugin->detach();
}

void TestPlugin::statusFollowsTheConnection()
{
    m_plugin->init();
    m_plugin->render();
    m_plugin->render();
    m_host->forget();
    const QString path = "laser_weld_data.virtual_welding_status";
    const QList<QPair<QJsonValue, bool>> rows{{true, true},          {false, false},  {true, true},
                                              {QJsonValue(), false}, {"true", false}, {1, false}};
    for (const auto& [value, isVirtual] : rows) {
        m_host->nodes[path] = value;
        emit m_host->sigNetworkConnect();
        QCOMPARE(shown(), picture(isVirtual ? ":/png/LaserSwitchSimu.png" : ":/png/LaserSwitchReal.png"));
    }
    QCOMPARE(m_host->reads.count(path), rows.size());

    // The host may take its widgets away before the plug-in object.
    delete m_host->statusBar;
    delete m_host->centerWidget;
    emit m_host->sigNetworkConnect();
    m_plugin->render();
}

QTEST_MAIN(TestPlugin)
#include "tst_plugin.moc"
