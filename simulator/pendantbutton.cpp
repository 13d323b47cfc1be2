#include "simulator/pendantbutton.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>

#include <utility>

namespace sim
{

namespace
{

// At 96 dpi; larger where the pendant's texts are.
constexpr int kWidth = 72;
constexpr int kFaceHeight = 56;
constexpr int kPicture = 46;
constexpr int kGap = 2;
constexpr int kLongestWord = 150; ///< a longer one is broken, so that the screen keeps its room
constexpr double kRound = 6;
constexpr double kDisabledOpacity = 0.5;

bool isHoldKey(int key)
{
    return key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter;
}

/// Whatever takes the button out of the operator's hands.
bool endsHolding(QEvent::Type type)
{
    switch (type) {
    case QEvent::FocusOut:
    case QEvent::Hide:
    case QEvent::WindowDeactivate:
    case QEvent::WindowBlocked:
        return true;
    default:
        return false;
    }
}

int widestWord(const QFontMetrics& metrics, const QString& text)
{
    int widest = 0;
    for (const QString& word : text.split(QLatin1Char(' '))) {
        widest = qMax(widest, metrics.horizontalAdvance(word));
    }
    return widest;
}

} // namespace

PendantButton::PendantButton(const pendix::PhysicalButton& record, QWidget* parent)
    : QWidget(parent), m_record(record), m_pressed(record.pressedImage), m_released(record.releasedImage)
{
    setAccessibleName(record.text);
    // A click leaves the focus in the field on the screen that the operator is at.
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum);
}

PendantButton::~PendantButton()
{
    retire();
}

void PendantButton::hold(int by)
{
    if (m_heldBy != kNothing) {
        return;
    }
    m_heldBy = by;
    // A dialog or a list that opens meanwhile gets the mouse's release in place of the button.
    qApp->installEventFilter(this);
    update();
    callHandler(true);
}

void PendantButton::letGo()
{
    if (m_heldBy == kNothing) {
        return;
    }
    m_heldBy = kNothing;
    qApp->removeEventFilter(this);
    update();
    callHandler(false);
}

/// Nothing may be done after it: the handler may spin the event loop and end this button.
void PendantButton::callHandler(bool pressed) const
{
    const std::function<void(bool)> handler = m_record.handler;
    if (handler) {
        handler(pressed);
    }
}

void PendantButton::retire()
{
    const std::function<void(bool)> handler = std::exchange(m_record.handler, nullptr);
    const bool wasDown = isDown();
    letGo();
    if (wasDown && handler) {
        handler(false);
    }
}

bool PendantButton::event(QEvent* event)
{
    const bool isDisabled = event->type() == QEvent::EnabledChange && !isEnabled();
    const bool ends = isDisabled || endsHolding(event->type());
    const bool taken = QWidget::event(event);
    if (ends) {
        update();
        letGo();
    }
    return taken;
}

bool PendantButton::eventFilter(QObject* watched, QEvent* event)
{
    const QPointer<QObject> receiver = watched;
    const bool isMouse = event->type() == QEvent::MouseButtonRelease || event->type() == QEvent::MouseMove;
    if (isMouse && m_heldBy == kMouse && !static_cast<QMouseEvent*>(event)->buttons().testFlag(Qt::LeftButton)) {
        letGo();
    }
    // What the handler has destroyed gets no event any more.
    return receiver == nullptr;
}

void PendantButton::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        hold(kMouse);
    }
}

void PendantButton::keyPressEvent(QKeyEvent* event)
{
    if (!isHoldKey(event->key())) {
        QWidget::keyPressEvent(event);
    } else if (!event->isAutoRepeat()) {
        hold(event->key());
    }
}

void PendantButton::keyReleaseEvent(QKeyEvent* event)
{
    if (!isHoldKey(event->key())) {
        QWidget::keyReleaseEvent(event);
    } else if (!event->isAutoRepeat() && event->key() == m_heldBy) {
        letGo();
    }
}

int PendantButton::scaled(int pixels) const
{
    constexpr int kDesignDpi = 96;
    return qMax(pixels, pixels * logicalDpiY() / kDesignDpi);
}

const QPixmap& PendantButton::picture() const
{
    return isDown() && !m_pressed.isNull() ? m_pressed : m_released;
}

int PendantButton::wrapFlags() const
{
    const bool fits = widestWord(fontMetrics(), text()) <= scaled(kLongestWord);
    return int(Qt::AlignHCenter) | int(Qt::AlignTop) | int(fits ? Qt::TextWordWrap : Qt::TextWrapAnywhere);
}

/// The room that the text takes in that width, from its own top.
QRect PendantButton::textRect(int width) const
{
    constexpr int kHighest = 10000;
    return fontMetrics().boundingRect(QRect(0, 0, width - 2 * kGap, kHighest), wrapFlags(), text());
}

QSize PendantButton::sizeHint() const
{
    const int line = fontMetrics().horizontalAdvance(text());
    const int word = qMin(widestWord(fontMetrics(), text()), scaled(kLongestWord));
    // A little wider rather than a second line.
    const int width = qMax(scaled(kWidth), (line <= scaled(kWidth) ? line : word) + 4 * kGap);
    const int textHeight = textRect(width).height() + 2 * kGap;
    return {width,
            m_released.isNull() ? qMax(scaled(kFaceHeight), textHeight + 4 * kGap) : scaled(kFaceHeight) + textHeight};
}

void PendantButton::paintFace(QPainter& painter, const QRect& face) const
{
    const QColor up = palette().color(QPalette::Button);
    painter.setBrush(isDown() ? up.darker(130) : up);
    painter.setPen(hasFocus() ? QPen(palette().color(QPalette::Highlight), 3) : QPen(up.darker(180), 1));
    painter.drawRoundedRect(QRectF(face).adjusted(1.5, 1.5, -1.5, -1.5), kRound, kRound);
}

void PendantButton::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.setOpacity(isEnabled() ? 1 : kDisabledOpacity);
    const QRect face = picture().isNull() ? rect() : QRect(0, 0, width(), scaled(kFaceHeight));
    paintFace(painter, face);
    const int sunk = isDown() ? 1 : 0;
    QRect words(kGap, face.bottom() + kGap, width() - 2 * kGap, height());
    if (picture().isNull()) {
        words.moveTop((height() - textRect(width()).height()) / 2 + sunk);
        painter.setPen(palette().color(QPalette::ButtonText));
    } else {
        const QSize room = QSize(scaled(kPicture), scaled(kPicture)).boundedTo(face.size());
        QRect place({}, picture().size().scaled(room, Qt::KeepAspectRatio));
        place.moveCenter(face.center() + QPoint(0, sunk));
        painter.drawPixmap(place, picture());
        painter.setPen(palette().color(QPalette::WindowText));
    }
    painter.drawText(words, wrapFlags(), text());
}

} // namespace sim
