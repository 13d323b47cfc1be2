#include "widgets/enablebutton.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
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
    void fadesWhenLocked();
    void readsItsStyle();
    void hasTheSizeOfItsRule();
};

void TestEnableButton::togglesOnLeftPressOnly()
{
    EnableButton button;
    QMouseEvent right(QEvent::MouseButtonPress, QPointF(5, 5), Qt::RightButton, Qt::RightButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&button, &right);
    QVERIFY(right.isAccepted()); // must not press what lies behind
    QVERIFY(!button.getIsEnabled());

    button.setStyleSheet(QStringLiteral("padding-left:10px"));
    button.setIsEnabled(true, false);
    QTRY_COMPARE(colorAt(button, 48), kKnobOn);
    QTest::qWait(50); // the last step is shown before the slide is over
    QVector<bool> told;
    connect(&button, &EnableButton::enabled, &button, [&](bool is_enable) {
        told.append(is_enable);
        // The slide has begun, between the paddings: 16 pixels from left to right.
        QCOMPARE(colorAt(button, is_enable ? 12 : 28), is_enable ? kKnobOn : kKnobOff);
    });
    QTest::mouseClick(&button, Qt::LeftButton);
    button.setStyleSheet(QStringLiteral("padding-left:0px"));
    QTest::mouseClick(&button, Qt::LeftButton);
    QCOMPARE(told, QVector<bool>({false, true}));
    QVERIFY(button.getIsEnabled());
}

void TestEnableButton::setsSilently()
{
    EnableButton button;
    QSignalSpy spy(&button, &EnableButton::enabled);
    button.setIsEnabled(true, false);
    QVERIFY(button.getIsEnabled());
    QTRY_COMPARE(colorAt(button, 48), kKnobOn);
    QTest::qWait(50); // for the last step

    button.setIsEnabled(true, false); // nothing to replay
    QCOMPARE(colorAt(button, 48), kKnobOn);
    // A new width counts at the next paint, with the knob where the slide stands.
    button.setStyleSheet(QStringLiteral("width:80px"));
    QCOMPARE(colorAt(button, 70), kKnobOn);
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
}

void TestEnableButton::fadesWhenLocked()
{
    QWidget page;
    auto* button = new EnableButton(&page);
    page.setEnabled(false);
    // At 20 the knob covers the track, which must not show through.
    for (const int x : {12, 20, 30}) {
        const QColor full = x == 30 ? kTrackOff : kKnobOff;
        const QColor faded = colorAt(*button, x);
        QVERIFY2(qAbs(faded.red() - (full.red() + 255) / 2) <= 1 && qAbs(faded.blue() - (full.blue() + 255) / 2) <= 1,
                 qPrintable(faded.name()));
    }
    page.setEnabled(true);
    QCOMPARE(colorAt(*button, 20), kKnobOff);
}

void TestEnableButton::readsItsStyle()
{
    const QSize usual(50, 24);
    const QColor ground = Qt::white;
    const struct {
        const char* style;
        QSize size;
        int x; // with the switch off; -1: nothing to see
        QColor color;
    } cases[] = {
        {"height:30px;width:60px", {60, 30}, 15, kKnobOff},
        {"width:60.5", {61, 24}, 12, kKnobOff}, // halves up
        {"width:-5px", {0, 24}, -1, {}},
        {"padding-left:1e300;padding-right:1e300", usual, 12, ground},
        {"disable-front-color:#00000000", usual, 2, ground},   // alpha last
        {"disable-front-color:#F00", usual, 12, kKnobOff},     // too short
        {"disable-front-color:#-1 1G0", usual, 12, Qt::black}, // no hexadecimal pairs
        {"disable-front-color:#ABCdef", usual, 12, {0xAB, 0xCD, 0xEF}},
        {"disable-front-color:#111111;disable-front-color:#222222", usual, 12, {0x22, 0x22, 0x22}},
        {"padding-left: 4px", usual, 2, ground},
        {" padding-left:4px", usual, 2, kKnobOff}, // another key
        {"padding-left:4px;padding-left:nan", usual, 2, kKnobOff},
        {"padding-left:4px:5px;;", usual, 2, kKnobOff},
    };
    for (const auto& expected : cases) {
        EnableButton button;
        button.setStyleSheet(QLatin1String(expected.style));
        QCOMPARE(button.size(), expected.size);
        QCOMPARE(button.sizeHint(), usual);
        QVERIFY2(expected.x < 0 || colorAt(button, expected.x) == expected.color, expected.style);
    }
}

void TestEnableButton::hasTheSizeOfItsRule()
{
    // The host lays the rules over the code: a size that differs there is the one that a pendant shows.
    QFile file(QStringLiteral(":/Corvane/render/sub_page.json"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QJsonObject found;
    const QJsonArray rules = QJsonDocument::fromJson(file.readAll()).array();
    for (const QJsonValue& rule : rules) {
        if (rule["name"] == "EnableButton") {
            found = rule.toObject();
        }
    }
    const QSize size = EnableButton().size();
    for (const char* end : {"min", "max"}) {
        QCOMPARE(found.value(QLatin1String(end) + "-width").toString(), QStringLiteral("%1px").arg(size.width()));
        QCOMPARE(found.value(QLatin1String(end) + "-height").toString(), QStringLiteral("%1px").arg(size.height()));
    }
}

QTEST_MAIN(TestEnableButton)
#include "tst_enablebutton.moc"
