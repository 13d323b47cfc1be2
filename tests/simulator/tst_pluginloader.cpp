#include "simulator/pluginloader.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace sim;

Q_DECLARE_METATYPE(sim::LoadFault)

class TestPluginLoader : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void causeAndReason_data();
    void causeAndReason();
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

void TestPluginLoader::causeAndReason_data()
{
    QTest::addColumn<LoadFault>("fault");
    QTest::addColumn<QString>("reason");
    QTest::newRow("none") << LoadFault::NoSuchFile << "no such file";
    QTest::newRow("missingsymbol") << LoadFault::MissingSymbol << "missing symbol: fixtureMissingFunction()";
    QTest::newRow("notregistered") << LoadFault::NotRegistered << "registered no plug-in";
    QTest::newRow("nullfactory") << LoadFault::ConstructionFailed
                                 << "construction of plug-in \"nullfactory\" failed: the factory gave nothing";
    QTest::newRow("throwsinfactory") << LoadFault::ConstructionFailed
                                     << "construction of plug-in \"throwsinfactory\" failed: fixture gives up";
    QTest::newRow("throwsininit") << LoadFault::InitFailed
                                  << "init of plug-in \"throwsininit\" failed: fixture gives up";
    QTest::newRow("throwsinafterinit") << LoadFault::AfterInitFailed
                                       << "afterInit of plug-in \"throwsinafterinit\" failed";
    QTest::newRow("throwsinrender") << LoadFault::RenderFailed
                                    << "render of plug-in \"throwsinrender\" failed with an unknown exception";
    QTest::newRow("nopage") << LoadFault::NoPage << "gave no page";
}

void TestPluginLoader::causeAndReason()
{
    QFETCH(LoadFault, fault);
    QFETCH(QString, reason);
    const LoadResult result = load(QTest::currentDataTag());
    QCOMPARE(result.fault, fault);
    QVERIFY2(result.reason.contains(reason), qPrintable(result.reason));
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
