#include "page/lasertrackingpage.h"
#include "tests/fakehost.h"
#include "widgets/stackedwidgetfit.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QTest>

class TestLaserTrackingPage : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void embedsAtOnce();
    void waitsForALatePlugin();
    void givesUpOnceAndAsksAgainWhenShown();
    void survivesItsGuest();

private:
    QStringList lines() const;

    FakeHost m_host;
};

void TestLaserTrackingPage::init()
{
    m_host.forget();
    m_host.otherWidget = nullptr;
}

QStringList TestLaserTrackingPage::lines() const
{
    QStringList texts;
    for (const pendix::LogStatement& statement : m_host.logs) {
        texts.append(statement.tag.at(1) + statement.items.join(QString()));
    }
    return texts;
}

void TestLaserTrackingPage::embedsAtOnce()
{
    QWidget former;
    auto* guest = new QLabel("tracking");
    (new QHBoxLayout(&former))->addWidget(guest);
    guest->setWindowFlags(Qt::Tool);
    m_host.otherWidget = [guest] { return guest; };
    StackedWidgetFit stack;
    auto* page = new LaserTrackingPage(&stack);
    stack.addWidget(page);
    page->initStyle();
    stack.resize(500, 400);
    stack.show();
    QCOMPARE(guest->parentWidget(), page);
    QVERIFY(!guest->isWindow() && guest->isVisible());
    QCOMPARE(former.layout()->count(), 0);
    QCOMPARE(guest->size(), page->size());
    page->resize(10, 10);
    page->initStyle();
    QCOMPARE(page->size(), stack.size());
    page->hide();
    page->show();
    QCOMPARE(m_host.calls.count("pluginNoUniqueWidget Mirolt"), 1);
    const QStringList told = lines();
    QCOMPARE(told.count("IMirolt embedded into LaserTrackingPage"), told.size());
}

void TestLaserTrackingPage::waitsForALatePlugin()
{
    LaserTrackingPage page(nullptr);
    page.show();
    QTRY_VERIFY(m_host.logs.size() >= 3);
    m_host.otherWidget = [] { return new QLabel; };
    QTRY_VERIFY(page.findChild<QLabel*>() != nullptr);
    QCOMPARE(lines().mid(0, 3),
             QStringList({"WMirolt embed pending, ret=-1 retry=1", "WMirolt embed pending, ret=-1 retry=2",
                          "WMirolt embed pending, ret=-1 retry=3"}));
    QCOMPARE(lines().last(), QString("IMirolt embedded into LaserTrackingPage"));
}

void TestLaserTrackingPage::givesUpOnceAndAsksAgainWhenShown()
{
    LaserTrackingPage page(nullptr);
    QElapsedTimer time;
    time.start();
    // Three causes to ask at about the same time, as when the main page opens, are one series.
    page.initStyle();
    page.show();
    page.initStyle();
    const auto failed = [this] { return lines().last().startsWith("E"); };
    QTRY_VERIFY_WITH_TIMEOUT(failed(), 60000);
    QVERIFY(time.elapsed() >= 22 * 190);
    QCOMPARE(m_host.logs.size(), 26);
    QCOMPARE(lines().at(24), QString("WMirolt embed pending, ret=-1 retry=25"));
    QCOMPARE(lines().last(), QString("EMirolt embed failed; 请确认 Mirolt.dll 已加载"));
    QVERIFY(m_host.messages.isEmpty());
    QTest::qWait(500);
    QCOMPARE(m_host.logs.size(), 26);

    page.hide();
    page.show();
    QCOMPARE(m_host.logs.size(), 27);
    QVERIFY(failed());
    m_host.otherWidget = [] { return new QLabel; };
    page.hide();
    page.show();
    QVERIFY(page.findChild<QLabel*>() != nullptr);
}

void TestLaserTrackingPage::survivesItsGuest()
{
    QPointer<QWidget> guest;
    m_host.otherWidget = [&guest] { return guest = new QLabel; };
    auto* page = new LaserTrackingPage(nullptr);
    page->show();
    delete guest;
    page->initStyle();
    QVERIFY(guest != nullptr && guest->parentWidget() == page);
    QCOMPARE(m_host.calls.size(), 2);

    // The page goes while a retry is due, or while the host makes the widget.
    delete guest;
    m_host.otherWidget = nullptr;
    page->initStyle();
    delete page;
    page = new LaserTrackingPage(nullptr);
    m_host.otherWidget = [&] {
        delete page;
        return guest = new QLabel;
    };
    page->initStyle();
    QVERIFY(guest == nullptr);

    // A neighbour that throws is asked again, one that is still being asked is not.
    m_host.otherWidget = []() -> QWidget* { throw 1; };
    LaserTrackingPage other(nullptr);
    QVERIFY_EXCEPTION_THROWN(other.initStyle(), int);
    m_host.calls.clear();
    m_host.otherWidget = [&] {
        other.initStyle();
        return guest = new QLabel;
    };
    other.initStyle();
    QVERIFY(guest != nullptr);
    QCOMPARE(m_host.calls.size(), 1);
}

QTEST_MAIN(TestLaserTrackingPage)
#include "tst_lasertrackingpage.moc"
