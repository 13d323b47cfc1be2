#include "simulator/userinput.h"

#include <QApplication>
#include <QEventLoop>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollArea>
#include <QTimer>
#include <QWidget>

namespace sim::userinput
{

namespace
{

QString tr(const char* text)
{
    return QCoreApplication::translate("sim::UserInput", text);
}

/// Scrolls every scroll area around the widget so that it can be reached.
void bringIntoView(QWidget* widget)
{
    for (QWidget* parent = widget->parentWidget(); parent != nullptr; parent = parent->parentWidget()) {
        if (auto* area = qobject_cast<QScrollArea*>(parent)) {
            area->ensureWidgetVisible(widget);
        }
    }
}

QString obstacle(QWidget* widget)
{
    if (!widget->isVisible()) {
        return tr("%1 is not visible").arg(widget->objectName());
    }
    if (!widget->isEnabled()) {
        return tr("%1 is disabled").arg(widget->objectName());
    }
    bringIntoView(widget);
    const QPoint place = widget->mapTo(widget->window(), widget->rect().center());
    const QWidget* hit = widget->window()->childAt(place);
    if (hit != widget && !widget->isAncestorOf(hit)) {
        return tr("%1 is covered or out of view").arg(widget->objectName());
    }
    return {};
}

void sendMouse(QWidget* widget, QEvent::Type type, Qt::MouseButtons buttons)
{
    const QPoint place = widget->rect().center();
    const QPoint inWindow = widget->mapTo(widget->window(), place);
    QMouseEvent event(type, place, inWindow, widget->mapToGlobal(place), Qt::LeftButton, buttons, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

void sendKey(QWidget* widget, int key, Qt::KeyboardModifiers modifiers, const QString& text)
{
    QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
    QApplication::sendEvent(widget, &press);
    QKeyEvent release(QEvent::KeyRelease, key, modifiers, text);
    QApplication::sendEvent(widget, &release);
}

} // namespace

QString click(QWidget* widget)
{
    QString reason = obstacle(widget);
    if (reason.isEmpty()) {
        sendMouse(widget, QEvent::MouseButtonPress, Qt::LeftButton);
        sendMouse(widget, QEvent::MouseButtonRelease, Qt::NoButton);
    }
    return reason;
}

QString type(QWidget* widget, const QString& text)
{
    QString reason = obstacle(widget);
    if (!reason.isEmpty()) {
        return reason;
    }
    widget->setFocus(Qt::MouseFocusReason);
    sendKey(widget, Qt::Key_A, Qt::ControlModifier, QString());
    for (const QChar letter : text) {
        sendKey(widget, letter.toUpper().unicode(), Qt::NoModifier, QString(letter));
    }
    sendKey(widget, Qt::Key_Tab, Qt::NoModifier, QStringLiteral("\t"));
    return {};
}

void settle(int ms)
{
    QEventLoop loop;
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec();
}

} // namespace sim::userinput
