#include "widgets/enablebutton.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPropertyAnimation>

namespace
{

constexpr QSize kSize(50, 24);
constexpr int kSlideSteps = 25;
constexpr int kSlideMs = 200;
constexpr double kTrackShare = 0.6; // of the knob's diameter
constexpr double kLockedOpacity = 0.5;

/// A text as whole pixels; 0 for no number. Bounded, so that sums of widths and paddings can't overflow.
int toPixels(const QString& text)
{
    bool ok = false;
    const double number = text.toDouble(&ok);
    if (!ok || !qIsFinite(number)) {
        return 0;
    }
    return qRound(qBound<double>(-QWIDGETSIZE_MAX, number, QWIDGETSIZE_MAX));
}

/// Digit by digit: a number parser would take a sign or a blank for part of a number.
int hexDigit(QChar c)
{
    const char digit = c.toLower().toLatin1();
    if (digit >= '0' && digit <= '9') {
        return digit - '0';
    }
    return digit >= 'a' && digit <= 'f' ? digit - 'a' + 10 : -1;
}

/// The two hexadecimal digits at a position; 0 if they are none.
int hexPair(const QString& text, int position)
{
    const int high = hexDigit(text.at(position));
    const int low = hexDigit(text.at(position + 1));
    return high < 0 || low < 0 ? 0 : high * 16 + low;
}

/// #RRGGBB or #RRGGBBAA. Not QColor's parser: that one takes the alpha first.
QColor toColor(const QString& text, const QColor& fallback)
{
    if (text.size() < 7) {
        return fallback;
    }
    const int alpha = text.size() >= 9 ? hexPair(text, 7) : 255;
    return QColor(hexPair(text, 1), hexPair(text, 3), hexPair(text, 5), alpha);
}

} // namespace

EnableButton::EnableButton(QWidget* parent)
    : QWidget(parent),
      animation(new QPropertyAnimation(this, QByteArray())),
      sliderOffset(0),
      lastWidth(0),
      isEnabled(false),
      enableBackgroundColor(141, 185, 244),
      disableBackgroundColor(189, 193, 198),
      enableFrontColor(26, 115, 232),
      disableFrontColor(221, 221, 221),
      paddingLeft(0),
      paddingTop(0),
      paddingRight(0),
      paddingBottom(0)
{
    animation->setStartValue(0);
    animation->setEndValue(kSlideSteps);
    animation->setDuration(kSlideMs);
    animation->setCurrentTime(kSlideMs); // the knob starts out arrived

    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFixedSize(kSize);
    setAutoFillBackground(false);
    QWidget::setStyleSheet(QStringLiteral("background:transparent;"));
    lastWidth = width();

    // Observers of the meta-object see the animation drive moveSlider's one-argument form, which a pointer to
    // the slot can't name.
    connect(animation, SIGNAL(valueChanged(QVariant)), this, SLOT(moveSlider(QVariant))); // string-based: observers
}

EnableButton::~EnableButton()
{
    delete animation; // it has no parent
}

bool EnableButton::getIsEnabled()
{
    return isEnabled;
}

void EnableButton::setIsEnabled(bool enabled, bool force)
{
    if (enabled != isEnabled || force) {
        isEnabled = enabled;
        animation->start();
    }
}

QSize EnableButton::sizeHint() const
{
    return kSize;
}

QSize EnableButton::minimumSizeHint() const
{
    return kSize;
}

void EnableButton::setStyleSheet(const QString& sheet)
{
    for (const QString& item : sheet.split(QLatin1Char(';'))) {
        const QStringList parts = item.split(QLatin1Char(':'));
        if (parts.size() != 2) {
            continue;
        }
        QString value = parts.at(1);
        if (value.endsWith(QLatin1String("px"))) {
            value.chop(2);
        }
        applyStyle(parts.at(0), value);
    }
}

void EnableButton::applyStyle(const QString& key, const QString& value)
{
    static const QHash<QString, int EnableButton::*> paddings = {
        {QStringLiteral("padding-left"), &EnableButton::paddingLeft},
        {QStringLiteral("padding-top"), &EnableButton::paddingTop},
        {QStringLiteral("padding-right"), &EnableButton::paddingRight},
        {QStringLiteral("padding-bottom"), &EnableButton::paddingBottom},
    };
    static const QHash<QString, QColor EnableButton::*> colors = {
        {QStringLiteral("disable-background-color"), &EnableButton::disableBackgroundColor},
        {QStringLiteral("disable-front-color"), &EnableButton::disableFrontColor},
        {QStringLiteral("enable-background-color"), &EnableButton::enableBackgroundColor},
        {QStringLiteral("enable-front-color"), &EnableButton::enableFrontColor},
    };

    if (const auto padding = paddings.value(key, nullptr)) {
        this->*padding = toPixels(value);
    } else if (const auto color = colors.value(key, nullptr)) {
        this->*color = toColor(value, this->*color);
    } else if (key == QLatin1String("width")) {
        setFixedWidth(qMax(toPixels(value), 0));
    } else if (key == QLatin1String("height")) {
        setFixedHeight(qMax(toPixels(value), 0));
    }
}

void EnableButton::moveSlider(const QVariant& value, bool need_update)
{
    const double step = value.toInt();
    const double progress = isEnabled ? step : kSlideSteps - step;
    const double offset = progress * (innerWidth() - innerHeight()) / kSlideSteps;
    sliderOffset = static_cast<int>(qBound<double>(-QWIDGETSIZE_MAX, offset, QWIDGETSIZE_MAX));
    if (need_update) {
        update();
    }
}

void EnableButton::mousePressEvent(QMouseEvent* event)
{
    // Any press ends here: one of another button must not reach what lies behind the switch.
    if (event->button() != Qt::LeftButton) {
        return;
    }
    sliderOffset = isEnabled ? width() - height() : 0;
    isEnabled = !isEnabled;
    animation->start();
    emit enabled(isEnabled);
}

void EnableButton::paintEvent(QPaintEvent* event)
{
    if (innerWidth() < innerHeight()) {
        return;
    }
    if (lastWidth != width()) {
        moveSlider(animation->currentValue(), false);
        lastWidth = width();
    }
    QPainter painter(this);
    if (QWidget::isEnabled()) {
        paintSwitch(painter);
        return;
    }
    // Faded as one picture: with each shape faded by itself, what the knob covers would show through it.
    const QRect rect = event->rect();
    const qreal ratio = devicePixelRatioF();
    QPixmap picture(rect.size() * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter picturePainter(&picture);
    picturePainter.translate(-rect.topLeft());
    paintSwitch(picturePainter);
    picturePainter.end();
    painter.setOpacity(kLockedOpacity);
    painter.drawPixmap(rect.topLeft(), picture);
}

void EnableButton::paintSwitch(QPainter& painter) const
{
    const int knob = innerHeight();
    const int track = static_cast<int>(knob * kTrackShare);
    const int trackTop = paddingTop + (knob - track) / 2;
    const int half = knob / 2;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);

    painter.setBrush(isEnabled ? enableBackgroundColor : disableBackgroundColor);
    painter.drawEllipse(paddingLeft + half, trackTop, track, track);
    painter.drawRect(paddingLeft + half + track / 2, trackTop, innerWidth() - knob - track, track);
    painter.drawEllipse(width() - paddingRight - half - track, trackTop, track, track);

    painter.setBrush(isEnabled ? enableFrontColor : disableFrontColor);
    painter.drawEllipse(paddingLeft + sliderOffset, paddingTop, knob, knob);
}
