#include "simulator/pluginloader.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace sim;

class TestPluginLoader : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void loadsOnceAndGivesItsPage();
    void bringsItsTranslation();

private:
    LoadResult load(const char* fixture)
    {
        return m_loader->load(QStringLiteral(FIXTURE_FOLDER "/%1.so").arg(QLatin1String(fixture)));
    }

    Journal m_journal;
    std::unique_ptr<SimulatedController> m_controller;
    std::unique_ptr<SimHost> m_host;
    std::unique_ptr<PluginLoader> m_loader;
};

void TestPluginLoader::initTestCase()
{
    m_controller = std::make_unique<SimulatedController>(Cell());
    m_host = std::make_unique<SimHost>(m_controller.get(), &m_journal);
    m_loader = std::make_unique<PluginLoader>(m_host.get());
}

void TestPluginLoader::loadsOnceAndGivesItsPage()
{
    m_loader->setLanguage(QStringLiteral("zh"));
    const LoadResult result = load("good");
    QVERIFY2(result.fault == LoadFault::None, qPrintable(result.reason));
    QCOMPARE(result.names, QStringList(QStringLiteral("good")));
    QCOMPARE(result.labels, QStringList(QStringLiteral("Fixture good")));
    QVERIFY(result.remarks.value(0).contains(QLatin1String(":/good/language/good_cn.qm")));
    QVERIFY(m_host->page(QStringLiteral("good")) != nullptr);
    const LoadResult again = load("good");
    QCOMPARE(again.fault, LoadFault::NotRegistered);
    QVERIFY(again.reason.contains(QLatin1String("already known")));
    QVERIFY(m_host->page(QStringLiteral("good")) != nullptr);
}

void TestPluginLoader::bringsItsTranslation()
{
    const auto navigation = [] { return QCoreApplication::translate("LaserWeldPage", "Char. Curve"); };
    const LoadResult result = m_loader->load(QStringLiteral(CORVANE_MODULE));
    QVERIFY2(result.fault == LoadFault::None && result.remarks.isEmpty(), qPrintable(result.reason));
    QCOMPARE(result.labels, QStringList(QString::fromUtf8("激光焊接")));
    QCOMPARE(navigation(), QString::fromUtf8("特性曲线"));
    m_loader.reset();
    QCOMPARE(navigation(), QStringLiteral("Char. Curve"));
}

QTEST_MAIN(TestPluginLoader)
#include "tst_pluginloader.moc"
