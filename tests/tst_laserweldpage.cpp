#include "page/characteristicscurvepage.h"
#include "page/lasertrackingpage.h"
#include "page/laserweldpage.h"
#include "page/showstatusbar.h"
#include "page/weldiopage.h"
#include "page/weldparameterpage.h"
#include "page/weldsettingpage.h"
#include "tests/fakehost.h"
#include "tests/formdriver.h"
#include "tests/takenaway.h"
#include "widgets/stackedwidgetfit.h"

#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpinBox>
#include <QTest>
#include <QToolButton>

namespace
{

struct Shown {
    FakeHost host;
    LaserWeldPage page{nullptr};
    FormDriver form{&page};

    Shown() { page.resize(860, 620); }

    QList<QToolButton*> buttons() const
    {
        return form.find("wgtNav")->findChildren<QToolButton*>(QString(), Qt::FindDirectChildrenOnly);
    }
    QString title() const { return form.find<QLabel>("lblTitle")->text(); }
    QWidget* current() const { return form.find<StackedWidgetFit>("stackedWidget")->currentWidget(); }
    QStringList checked() const
    {
        QStringList texts;
        for (const QToolButton* button : buttons()) {
            if (button->isChecked()) {
                texts.append(button->text());
            }
        }
        return texts;
    }
};

} // namespace

class TestLaserWeldPage : public QObject
{
    Q_OBJECT

private slots:
    void navigation();
    void clickWhileAPageIsShown();
    void pageTakenAway();
    void styles();
    void stylesOnlyWhatChanged();
    void addPage();
    void pageStatus();
    void smallScreenScrolls();
    void statusPictures();
};

void TestLaserWeldPage::navigation()
{
    Shown shown;
    QCOMPARE(shown.title(), QString("Title"));
    shown.page.show();
    const QList<QStringList> rows{{"Weld Setup", "Parmeter Setting", "WeldSettingPage"},
                                  {"Weld I/O", "Soldering I/O", "WeldioPage"},
                                  {"Char. Curve", "Characteristic curves", "CharacteristicsCurvePage"},
                                  {"Weld Data", "Welding Parameters", "WeldParameterPage"},
                                  {"Laser Tracking", "Laser Tracking", "LaserTrackingPage"}};
    QCOMPARE(shown.checked(), QStringList{"Weld Setup"});
    QCOMPARE(shown.buttons().size(), rows.size());
    for (int i = 0; i < rows.size(); ++i) {
        QToolButton* button = shown.buttons()[i];
        QTest::mouseClick(button, Qt::LeftButton);
        const QStringList row{button->text(), shown.title(), shown.current()->metaObject()->className()};
        QCOMPARE(row, rows[i]);
        QCOMPARE(shown.checked(), QStringList{button->text()});
        QVERIFY(!button->icon().isNull());
        QCOMPARE(button->property("pageIndex").toInt(),
                 shown.form.find<StackedWidgetFit>("stackedWidget")->currentIndex());
    }
    // What was left comes back.
    QTest::mouseClick(shown.buttons()[3], Qt::LeftButton);
    shown.page.hide();
    shown.page.show();
    QCOMPARE(shown.checked() + QStringList{shown.title()}, QStringList({"Weld Data", "Welding Parameters"}));
}

void TestLaserWeldPage::clickWhileAPageIsShown()
{
    Shown shown;
    // "Weld Setup" asks the host while it is shown, and the operator goes on to "Weld Data", or comes back.
    for (const int last : {3, 0}) {
        shown.page.hide();
        bool clicked = false;
        shown.host.onCall = [&](const QString&) {
            if (!clicked) {
                clicked = true;
                QTest::mouseClick(shown.buttons()[3], Qt::LeftButton);
                QTest::mouseClick(shown.buttons()[last], Qt::LeftButton);
            }
        };
        shown.page.show();
        shown.host.onCall = nullptr;
        QVERIFY(clicked);
        QCOMPARE(shown.checked(), QStringList{shown.buttons()[last]->text()});
        QCOMPARE(shown.title(), QString(last == 3 ? "Welding Parameters" : "Parmeter Setting"));
        QCOMPARE(shown.current()->objectName(), QString(last == 3 ? "WeldParameterPage" : "WeldSettingPage"));
        QVERIFY(shown.current()->isVisible());
        QTest::mouseClick(shown.buttons()[0], Qt::LeftButton);
    }
}

void TestLaserWeldPage::pageTakenAway()
{
    FakeHost host;
    const auto make = [] { return new LaserWeldPage(nullptr); };
    // The neighbour is asked for its widget.
    QCOMPARE(takeAwayInEveryCall<LaserWeldPage>(host, make, [](LaserWeldPage* page) { page->initStyle(); }), 1);
}

void TestLaserWeldPage::styles()
{
    Shown shown;
    shown.page.initStyle();
    QVERIFY(shown.page.styleSheet().contains("QScrollBar::handle:vertical"));
    QVERIFY(!shown.form.find("frame_3")->styleSheet().isEmpty());
    for (const QToolButton* button : shown.buttons()) {
        QVERIFY(button->styleSheet().contains("QToolButton:checked {background: #8a0121;color: white;}"));
    }
    // Each pass styles every sub-page.
    const auto takenAway = [](QWidget* page) {
        page->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        return page;
    };
    QWidget* pages[] = {takenAway(shown.form.find<WeldioPage>(QString())),
                        takenAway(shown.form.find<CharacteristicsCurvePage>(QString())),
                        takenAway(shown.form.find<WeldParameterPage>(QString()))};
    const QString ask = "pluginNoUniqueWidget Mirolt";
    shown.host.forget();
    shown.page.initStyle();
    for (const QWidget* page : pages) {
        QCOMPARE(page->sizePolicy().verticalPolicy(), QSizePolicy::Expanding);
    }
    QCOMPARE(shown.host.calls.count(ask), 1);
    // The tracking page is also styled whenever it becomes current, besides being shown.
    shown.page.show();
    for (int visit = 0; visit < 2; ++visit) {
        shown.host.forget();
        QTest::mouseClick(shown.buttons()[4], Qt::LeftButton);
        QCOMPARE(shown.host.calls.count(ask), 2);
        QTest::mouseClick(shown.buttons()[0], Qt::LeftButton);
    }
}

void TestLaserWeldPage::stylesOnlyWhatChanged()
{
    struct : QObject {
        int changes = 0;
        bool eventFilter(QObject* /*watched*/, QEvent* event) override
        {
            changes += event->type() == QEvent::StyleChange || event->type() == QEvent::FontChange ? 1 : 0;
            return false;
        }
    } counter;
    Shown shown;
    shown.page.initStyle();
    const auto* field = shown.form.find<QSpinBox>("spinBox_laser_power");
    QVERIFY2(!field->testAttribute(Qt::WA_WState_Polished), "a page that was never shown is not measured");
    shown.page.show();
    QVERIFY(field->minimumWidth() > 0);
    QCoreApplication::instance()->installEventFilter(&counter);
    shown.page.initStyle();
    QCOMPARE(counter.changes, 0);
    shown.host.nodes.insert("brisel.fontzoom", 2.0);
    const int height = field->minimumHeight();
    shown.page.initStyle();
    QVERIFY(field->minimumHeight() > height);
}

void TestLaserWeldPage::addPage()
{
    Shown shown;
    shown.page.addPage("none", "none", nullptr, QString());
    QCOMPARE(shown.buttons().size(), 5);
    auto* extra = new QWidget;
    shown.page.addPage("Extra", "Extra page", extra, ":/png/no-such-picture.png");
    QCOMPARE(shown.buttons().size(), 6);
    QVERIFY(shown.buttons().last()->icon().isNull());
    shown.page.show();
    QTest::mouseClick(shown.buttons().last(), Qt::LeftButton);
    QCOMPARE(shown.current(), extra);
    // Taken out of the stack, and then gone: its button opens nothing.
    QTest::mouseClick(shown.buttons()[3], Qt::LeftButton);
    extra->setParent(nullptr);
    QTest::mouseClick(shown.buttons().last(), Qt::LeftButton);
    delete extra;
    QTest::mouseClick(shown.buttons().last(), Qt::LeftButton);
    QCOMPARE(shown.checked() + QStringList{shown.title()}, QStringList({"Weld Data", "Welding Parameters"}));
}

void TestLaserWeldPage::pageStatus()
{
    Shown shown;
    shown.page.show();
    for (const bool locked : {true, false}) {
        shown.page.setPageStatus(locked);
        QCOMPARE(shown.form.find<WeldioPage>(QString())->isEnabled(), !locked);
        QCOMPARE(shown.form.find<CharacteristicsCurvePage>(QString())->isEnabled(), !locked);
        QCOMPARE(shown.form.find<WeldParameterPage>(QString())->isEnabled(), !locked);
        QCOMPARE(shown.form.isEnabled("frame_2"), !locked);
        QVERIFY(shown.form.find<LaserTrackingPage>(QString())->isEnabled());
    }
}

void TestLaserWeldPage::smallScreenScrolls()
{
    Shown shown;
    shown.page.initStyle();
    shown.page.resize(600, 260);
    shown.page.show();
    QTRY_VERIFY(shown.form.find<QScrollArea>("scrollArea")->verticalScrollBar()->maximum() > 0);
    QTRY_VERIFY2(shown.form.find<QScrollArea>("scrollArea")->horizontalScrollBar()->maximum() > 0,
                 "texts are scrolled to, not cut off");
    for (const QScrollBar* bar : shown.page.findChildren<QScrollBar*>()) {
        QVERIFY2(!bar->isVisible() || bar->parentWidget()->rect().contains(bar->geometry()), "a border is cut off");
    }
    // The setting page keeps its content's height, so its last row can be reached.
    QTRY_VERIFY(shown.current()->height() >= shown.form.find("pushButton_save")->geometry().bottom());
    shown.page.resize(1000, 900);
    QTRY_COMPARE(shown.form.find<QScrollArea>("scrollArea")->verticalScrollBar()->maximum(), 0);
    QTRY_VERIFY2(shown.current()->height() < 700, "a compact page is not stretched");
}

void TestLaserWeldPage::statusPictures()
{
    ShowStatusBar item(nullptr);
    QCOMPARE(item.size(), QSize(53, 25));
    const auto* label = item.findChild<QLabel*>("label");
    item.SetRealWelding();
    const QImage real = label->pixmap(Qt::ReturnByValue).toImage();
    QCOMPARE(real.height(), 25);
    item.SetVirtualWelding();
    const QImage simulated = label->pixmap(Qt::ReturnByValue).toImage();
    QCOMPARE(simulated.height(), 25);
    QVERIFY(real != simulated);
    item.updateText("text");
    QCOMPARE(label->text(), QString("text"));
    item.SetRealWelding();
    item.updateText("");
    QVERIFY(label->pixmap(Qt::ReturnByValue).isNull());
}

QTEST_MAIN(TestLaserWeldPage)
#include "tst_laserweldpage.moc"
