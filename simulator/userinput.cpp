#include "simulator/userinput.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QEventLoop>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QScrollArea>
#include <QTimer>
#include <QWidget>

#include <initializer_list>
#include <utility>

namespace sim::userinput
{

namespace
{

QString tr(const char* text)
{
    return QCoreApplication::translate("sim::UserInput", text);
}

/// Scrolls every scroll area and table around the widget so that it can be reached.
void bringIntoView(QWidget* widget)
{
    for (QWidget* parent = widget->parentWidget(); parent != nullptr; parent = parent->parentWidget()) {
        if (auto* area = qobject_cast<QScrollArea*>(parent)) {
            area->ensureWidgetVisible(widget);
        }
        auto* view = qobject_cast<QAbstractItemView*>(parent);
        if (view != nullptr && view->viewport()->isAncestorOf(widget)) {
            // In a cell, which the view knows wherever it has been scrolled to.
            const QPoint middle = widget->mapTo(view->viewport(), widget->rect().center());
            view->scrollTo(view->indexAt(middle));
        }
    }
}

QString obstacle(QWidget* widget, const QPoint& place)
{
    if (!widget->isVisible()) {
        return tr("%1 is not visible").arg(widget->objectName());
    }
    if (!widget->isEnabled()) {
        return tr("%1 is disabled").arg(widget->objectName());
    }
    bringIntoView(widget);
    const QWidget* hit = widget->window()->childAt(widget->mapTo(widget->window(), place));
    const bool isHit = hit != nullptr ? hit == widget || widget->isAncestorOf(hit) : widget->isWindow();
    if (!isHit) {
        return tr("%1 is covered or out of view").arg(widget->objectName());
    }
    return {};
}

void sendMouse(QWidget* widget, const QPoint& place, QEvent::Type type, Qt::MouseButtons buttons)
{
    const QPoint inWindow = widget->mapTo(widget->window(), place);
    QMouseEvent event(type, place, inWindow, widget->mapToGlobal(place), Qt::LeftButton, buttons, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

/// What a press does may destroy the widget, with which the rest of the events is void.
QString sendPresses(QWidget* widget, const QPoint& place, std::initializer_list<QEvent::Type> presses)
{
    QString reason = obstacle(widget, place);
    const QPointer<QWidget> target = widget;
    for (const QEvent::Type press : presses) {
        for (const auto& [type, buttons] :
             {std::pair(press, Qt::LeftButton), std::pair(QEvent::MouseButtonRelease, Qt::NoButton)}) {
            if (reason.isEmpty() && target != nullptr) {
                sendMouse(target, place, type, buttons);
            }
        }
    }
    return reason;
}

} // namespace

QString click(QWidget* widget)
{
    return click(widget, widget->rect().center());
}

QString click(QWidget* widget, const QPoint& place)
{
    return sendPresses(widget, place, {QEvent::MouseButtonPress});
}

QString doubleClick(QWidget* widget, const QPoint& place)
{
    return sendPresses(widget, place, {QEvent::MouseButtonPress, QEvent::MouseButtonDblClick});
}

QString press(QWidget* widget)
{
    const QPoint middle = widget->rect().center();
    QString reason = obstacle(widget, middle);
    if (reason.isEmpty()) {
        sendMouse(widget, middle, QEvent::MouseButtonPress, Qt::LeftButton);
    }
    return reason;
}

void release(QWidget* widget)
{
    sendMouse(widget, widget->rect().center(), QEvent::MouseButtonRelease, Qt::NoButton);
}

void key(QWidget* widget, int key, Qt::KeyboardModifiers modifiers, const QString& text)
{
    const QPointer<QWidget> target = widget;
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        if (target != nullptr) {
            QKeyEvent event(type, key, modifiers, text);
            QApplication::sendEvent(target, &event);
        }
    }
}

QString type(QWidget* widget, const QString& text)
{
    QString reason = obstacle(widget, widget->rect().center());
    if (!reason.isEmpty()) {
        return reason;
    }
    const QPointer<QWidget> target = widget;
    widget->setFocus(Qt::MouseFocusReason);
    key(target, Qt::Key_A, Qt::ControlModifier);
    for (const QChar letter : text) {
        key(target, letter.toUpper().unicode(), Qt::NoModifier, QString(letter));
    }
    key(target, Qt::Key_Tab, Qt::NoModifier, QStringLiteral("\t"));
    return {};
}

void settle(int ms)
{
    QEventLoop loop;
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec();
}

} // namespace sim::userinput
