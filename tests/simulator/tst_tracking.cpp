#include "simulator/pluginloader.h"
#include "simulator/widgetexchange.h"

#include "pendixhost/nouniquewidgetregistry.h"

#include <QAbstractButton>
#include <QLabel>
#include <QSpinBox>
#include <QtTest>

#include <stdexcept>

using namespace sim;

/// What one plug-in offers to others, and the plug-in that the simulator has for it.
class TestTracking : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void answers();
    void offersReplaceAndEnd();
    void offerEndsWithThePluginThatFailed();
    void pagesAgreeAndOutliveThePlugin();

private:
    std::unique_ptr<Journal> m_journal;
    std::unique_ptr<SimulatedController> m_controller;
    std::unique_ptr<SimHost> m_host;
};

void TestTracking::init()
{
    m_journal = std::make_unique<Journal>();
    m_controller = std::make_unique<SimulatedController>(Cell());
    m_host = std::make_unique<SimHost>(m_controller.get(), m_journal.get());
    pendixFactory()->regist(QStringLiteral("probe"), {});
}

void TestTracking::cleanup()
{
    pendix::NoUniqueWidgetRegistry::instance().forget(QStringLiteral("probe"));
    pendix::unregisterPlugin(QStringLiteral("probe"));
}

void TestTracking::answers()
{
    const QString probe = QStringLiteral("probe");
    const struct {
        QString asked;
        std::function<QWidget*()> factory;
        int code;
        QString notice;
    } rows[] = {
        {"stranger", {}, -1, {}},
        {probe, {}, -2, {}},
        {probe, [] { return new QLabel; }, 0, {}},
        {probe, [] { return nullptr; }, -2, "its factory gave nothing"},
        {probe, []() -> QWidget* { throw std::runtime_error("no sensor"); }, -2, "its factory failed: no sensor"},
        {probe, []() -> QWidget* { throw 7; }, -2, "unknown exception"},
    };
    for (const auto& row : rows) {
        init();
        OfferNoUniqueWidget(probe, row.factory);
        QWidget* widget = nullptr;
        QCOMPARE(GetPluginNoUniqueWidget(row.asked, widget), row.code);
        const std::unique_ptr<QWidget> owned(widget);
        QCOMPARE(widget != nullptr, row.code == 0);
        QCOMPARE(m_journal->size(), row.notice.isEmpty() ? 1 : 2);
        QVERIFY(row.notice.isEmpty() || m_journal->at(1).text.contains(row.notice));
    }
}

void TestTracking::offersReplaceAndEnd()
{
    const QString probe = QStringLiteral("probe");
    QWidget parent;
    OfferNoUniqueWidget(probe, [] { return new QWidget; });
    OfferNoUniqueWidget(probe, [&parent] { return new QLabel(&parent); });
    const std::unique_ptr<QWidget> first(noUniqueWidget(probe).widget);
    const std::unique_ptr<QWidget> second(noUniqueWidget(probe).widget);
    QVERIFY(qobject_cast<QLabel*>(first.get()) != nullptr);
    QVERIFY(first != second);
    QVERIFY2(first->parent() == nullptr, "the asker owns it alone");
    OfferNoUniqueWidget(probe, {});
    QCOMPARE(noUniqueWidget(probe).code, -2);
}

void TestTracking::offerEndsWithThePluginThatFailed()
{
    // The name of a fixture that gives up in init, as if it had made its offer before.
    const QString name = QStringLiteral("throwsininit");
    OfferNoUniqueWidget(name, [] { return new QWidget; });
    PluginLoader loader(m_host.get());
    QCOMPARE(loader.load(QStringLiteral(FIXTURE_FOLDER "/throwsininit.so")).fault, LoadFault::InitFailed);
    QVERIFY(!pendix::NoUniqueWidgetRegistry::instance().offers(name));
}

void TestTracking::pagesAgreeAndOutliveThePlugin()
{
    const QString name = QStringLiteral("Mirolt");
    const auto press = [](const QWidget* page, const char* button) {
        page->findChild<QAbstractButton*>(QLatin1String(button))->click();
    };
    QSignalSpy told(m_host.get(), &SimHost::operatorMessage);
    auto loader = std::make_unique<PluginLoader>(m_host.get());
    const LoadResult result = loader->load(QStringLiteral(MIROLT_MODULE));
    QVERIFY2(result.fault == LoadFault::None, qPrintable(result.reason));
    QVERIFY(!result.bringsInstructions);
    QVERIFY(QFile::exists(QStringLiteral(":/Mirolt/language/Mirolt_cn.qm")));
    const QWidget* own = m_host->page(name);
    const std::unique_ptr<QWidget> embedded(noUniqueWidget(name).widget);
    QVERIFY(own != nullptr && embedded != nullptr && own != embedded.get());
    auto* ownGain = own->findChild<QSpinBox*>();
    auto* status = embedded->findChild<QLabel*>(QStringLiteral("label_status"));

    m_controller->setOperatorLevel(2);
    ownGain->setValue(70);
    QCOMPARE(ownGain->value(), 40);
    m_controller->setOperatorLevel(3);
    press(embedded.get(), "pushButton_tracking");
    ownGain->setValue(70);
    QCOMPARE(embedded->findChild<QSpinBox*>()->value(), 70);
    press(own, "pushButton_sensor");
    const QString standing = status->text();
    press(embedded.get(), "pushButton_tracking");
    QTRY_VERIFY2(status->text() != standing && status->text() != QLatin1String("Deviation y +0.00, z +0.00 mm"),
                 "the measurements go on");

    loader.reset();
    QCOMPARE(noUniqueWidget(name).code, -2);
    press(embedded.get(), "pushButton_sensor");
    QStringList messages;
    for (const QList<QVariant>& message : told) {
        messages.append(message.at(1).toString() + QLatin1Char(' ') + message.at(2).toString());
    }
    QCOMPARE(messages, QStringList({"1 Insufficient user permissions!", "1 Switch the sensor on first",
                                    "0 Seam tracking started", "0 Seam tracking stopped"}));
}

QTEST_MAIN(TestTracking)
#include "tst_tracking.moc"
