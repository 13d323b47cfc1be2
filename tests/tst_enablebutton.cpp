#include "widgets/enablebutton.h"

#include <QMouseEvent>
#include <QSignalSpy>
#include <QTest>

namespace
{

const QColor kTrackOff(189, 193, 198);
const QColor kTrackOn(141, 185, 244);
const QColor kKnobOff(221, 221, 221);
const QColor kKnobOn(26, 115, 232);

/// The switch on a white ground at a pixel, half of its height below the top.
QColor colorAt(EnableButton& button, int x)
{
    QImage image(button.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    button.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image.pixelColor(x, button.height() / 2);
}

} // namespace

class TestEnableButton : public QObject
{
    Q_OBJECT

private slots:
    void togglesOnLeftPressOnly();
    void setsSilently();
    void slidesTheKnob();
    void readsItsStyle_data();
    void readsItsStyle();
};

void TestEnableButton::togglesOnLeftPressOnly()
{
    EnableButton button;
    button.setStyleSheet(QStringLiteral("padding-left:50px")); // no room to paint, but to press
    QSignalSpy spy(&button, &EnableButton::enabled);
    QMouseEvent right(QEvent::MouseButtonPress, QPointF(5, 5), Qt::RightButton, Qt::RightButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&button, &right);
    QVERIFY(right.isAccepted()); // must not press what lies behind
    QVERIFY(!button.getIsEnabled());
    QTest::mouseClick(&button, Qt::LeftButton);
    QVERIFY(button.getIsEnabled());
    QTest::mouseClick(&button, Qt::LeftButton);
    QVERIFY(!button.getIsEnabled());
    QCOMPARE(spy.size(), 2);
    QCOMPARE(spy.at(0).at(0).toBool(), true);
    QCOMPARE(spy.at(1).at(0).toBool(), false);
}

void TestEnableButton::setsSilently()
{
    EnableButton button;
    QSignalSpy spy(&button, &EnableButton::enabled);
    button.setIsEnabled(true, false);
    QVERIFY(button.getIsEnabled());
    QTRY_COMPARE(colorAt(button, 48), kKnobOn);
    QTest::qWait(50); // the last step is shown before the slide is over

    button.setIsEnabled(true, false); // nothing to replay
    QCOMPARE(colorAt(button, 48), kKnobOn);
    // Slides again from the off side, as soon as the first slide is over.
    QTRY_COMPARE((button.setIsEnabled(true, true), colorAt(button, 2)), kKnobOn);
    QVERIFY(spy.isEmpty());
}

void TestEnableButton::slidesTheKnob()
{
    EnableButton button;
    QCOMPARE(colorAt(button, 12), kKnobOff);
    QCOMPARE(colorAt(button, 30), kTrackOff);

    button.setIsEnabled(true, false);
    button.moveSlider(12); // 12 x 26 / 25 = 12.48: from pixel 12 to 36
    QCOMPARE(colorAt(button, 36), kTrackOn);
    QCOMPARE(colorAt(button, 34), kKnobOn);
    button.moveSlider(INT_MAX); // off the widget, but no overflow
    QCOMPARE(colorAt(button, 20), kTrackOn);

    // A new width counts at the next paint, with the knob where the slide stands.
    EnableButton wide;
    wide.setIsEnabled(true, false);
    QTRY_COMPARE(colorAt(wide, 48), kKnobOn);
    QTest::qWait(50); // for the last step
    wide.setStyleSheet(QStringLiteral("width:80px"));
    QCOMPARE(colorAt(wide, 70), kKnobOn);
}

void TestEnableButton::readsItsStyle_data()
{
    QTest::addColumn<QString>("style");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("x"); // with the switch off
    QTest::addColumn<QColor>("color");
    const QSize usual(50, 24);
    const QColor ground = Qt::white;

    QTest::newRow("size") << "height:30px;width:60px" << QSize(60, 30) << 15 << kKnobOff;
    QTest::newRow("halves up") << "width:60.5" << QSize(61, 24) << 12 << kKnobOff;
    QTest::newRow("negative") << "width:-5px" << QSize(0, 24) << -1 << kKnobOff;
    QTest::newRow("huge") << "padding-left:1e300;padding-right:1e300" << usual << 12 << ground;
    QTest::newRow("alpha last") << "disable-front-color:#00000000" << usual << 2 << ground;
    QTest::newRow("too short") << "disable-front-color:#F00" << usual << 12 << kKnobOff;
    QTest::newRow("no hex pairs") << "disable-front-color:#-1 1G0" << usual << 12 << QColor(0, 0, 0);
    QTest::newRow("later wins") << "disable-front-color:#111111;disable-front-color:#222222" << usual << 12
                                << QColor(34, 34, 34);
    QTest::newRow("blank in value") << "padding-left: 4px" << usual << 2 << ground;
    QTest::newRow("blank in key") << " padding-left:4px" << usual << 2 << kKnobOff;
    QTest::newRow("no number") << "padding-left:4px;padding-left:nan" << usual << 2 << kKnobOff;
    QTest::newRow("three parts") << "padding-left:4px:5px;;" << usual << 2 << kKnobOff;
}

void TestEnableButton::readsItsStyle()
{
    QFETCH(QString, style);
    QFETCH(QSize, size);
    QFETCH(int, x);
    QFETCH(QColor, color);
    EnableButton button;
    button.setStyleSheet(style);
    QCOMPARE(button.size(), size);
    QCOMPARE(button.sizeHint(), QSize(50, 24));
    if (x >= 0) {
        QCOMPARE(colorAt(button, x), color);
    }
}

QTEST_MAIN(TestEnableButton)
#include "tst_enablebutton.moc"
