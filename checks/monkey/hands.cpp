#include "checks/monkey/hands.h"

#include "checks/support/scramble.h"
#include "simulator/pendantbutton.h"
#include "simulator/userinput.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QStackedWidget>
#include <QTabBar>
#include <QTextEdit>

using namespace sim;

namespace hands
{

namespace
{

constexpr Qt::Key kKeys[] = {Qt::Key_Tab,   Qt::Key_Backtab, Qt::Key_Return,    Qt::Key_Enter,    Qt::Key_Escape,
                             Qt::Key_Space, Qt::Key_Left,    Qt::Key_Right,     Qt::Key_Up,       Qt::Key_Down,
                             Qt::Key_Home,  Qt::Key_End,     Qt::Key_PageUp,    Qt::Key_PageDown, Qt::Key_F2,
                             Qt::Key_F4,    Qt::Key_Delete,  Qt::Key_Backspace, Qt::Key_A,        Qt::Key_7,
                             Qt::Key_Minus, Qt::Key_Percent};

QString keyName(Qt::Key key)
{
    return QKeySequence(key).toString();
}

/// The key with the character that it writes, if it writes one.
void press(QWidget* widget, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    const bool writes = key >= Qt::Key_Space && key <= Qt::Key_AsciiTilde;
    userinput::key(widget, key, modifiers, writes ? QString(QChar(key).toLower()) : QString());
}

QString pressSome(QWidget* widget, std::initializer_list<Qt::Key> keys, Dice& dice)
{
    QStringList pressed;
    const QPointer<QWidget> target = widget;
    widget->setFocus(Qt::MouseFocusReason);
    for (int left = 1 + dice.below(3); left > 0 && target != nullptr; --left) {
        const Qt::Key key = *(keys.begin() + dice.below(static_cast<int>(keys.size())));
        pressed.append(keyName(key));
        press(target, key);
    }
    return QStringLiteral("keys %1").arg(pressed.join(QLatin1Char(' ')));
}

QString write(QWidget* widget, const QString& text)
{
    const QString obstacle = userinput::type(widget, text);
    return obstacle.isEmpty() ? QStringLiteral("types \"%1\"").arg(text) : obstacle;
}

QString click(QWidget* widget)
{
    const QString obstacle = userinput::click(widget);
    return obstacle.isEmpty() ? QStringLiteral("clicks") : obstacle;
}

QString useSpinBox(QWidget* widget, Dice& dice)
{
    switch (dice.below(4)) {
    case 0:
        return pressSome(widget, {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Return}, dice);
    case 1:
        return write(widget, anyText(dice));
    case 2:
        return write(widget, QString::number(dice.below(200000) - 50000));
    default:
        // Mostly what an operator means: a small number.
        return write(widget, QString::number(dice.below(2000)));
    }
}

QString useComboBox(QWidget* widget, Dice& dice)
{
    auto* combo = static_cast<QComboBox*>(widget);
    if (combo->isEditable() && dice.oneIn(3)) {
        return write(widget, anyText(dice));
    }
    if (dice.oneIn(3)) {
        return click(widget); // opens the list, which the next actions meet
    }
    return pressSome(widget, {Qt::Key_Up, Qt::Key_Down, Qt::Key_Home, Qt::Key_End, Qt::Key_Down, Qt::Key_7}, dice);
}

QString useLineEdit(QWidget* widget, Dice& dice)
{
    return dice.oneIn(4) ? pressSome(widget, {Qt::Key_Return, Qt::Key_Delete, Qt::Key_Home, Qt::Key_A}, dice)
                         : write(widget, anyText(dice));
}

QString useItemView(QWidget* widget, Dice& dice)
{
    auto* view = static_cast<QAbstractItemView*>(widget);
    const QAbstractItemModel* model = view->model();
    const QModelIndex root = view->rootIndex();
    if (model == nullptr || model->rowCount(root) == 0 || model->columnCount(root) == 0) {
        return click(widget);
    }
    const int row = dice.below(model->rowCount(root));
    const int column = dice.below(model->columnCount(root));
    QModelIndex cell = model->index(row, column, root);
    // In a tree mostly to what the branches hold.
    while (model->hasChildren(cell) && !dice.oneIn(6)) {
        cell = model->index(dice.below(model->rowCount(cell)), 0, cell);
    }
    view->scrollTo(cell);
    const QPoint place = view->visualRect(cell).center();
    const QString where = QStringLiteral("cell %1,%2: ").arg(QString::number(cell.row()), QString::number(column));
    const QPointer<QWidget> viewport = view->viewport();
    const bool twice = dice.oneIn(3);
    const QString obstacle = twice ? userinput::doubleClick(viewport, place) : userinput::click(viewport, place);
    QWidget* editor = QApplication::focusWidget();
    if (twice && viewport != nullptr && editor != nullptr && viewport->isAncestorOf(editor) && editor->isVisible()) {
        return where + write(editor, anyText(dice));
    }
    return where + (obstacle.isEmpty() ? QStringLiteral("clicks") : obstacle);
}

QString useTabBar(QWidget* widget, Dice& dice)
{
    auto* bar = static_cast<QTabBar*>(widget);
    if (bar->count() == 0) {
        return QStringLiteral("has no tabs");
    }
    const int tab = dice.below(bar->count());
    const QString obstacle = userinput::click(bar, bar->tabRect(tab).center());
    return QStringLiteral("tab %1 ").arg(tab) + obstacle;
}

QString useButton(QWidget* widget, Dice& dice)
{
    return dice.oneIn(8) ? pressSome(widget, {Qt::Key_Space, Qt::Key_Return, Qt::Key_Right}, dice) : click(widget);
}

/// Holds it for a while, in which anything else may be done.
QString useHeld(QWidget* widget, Dice& dice)
{
    constexpr int kLongestHoldMs = 3000;
    const QPointer<QWidget> target = widget;
    QString obstacle = userinput::press(widget);
    if (!obstacle.isEmpty()) {
        return obstacle;
    }
    const int ms = dice.below(kLongestHoldMs);
    userinput::settle(ms);
    if (target != nullptr) {
        userinput::release(target);
    }
    return QStringLiteral("holds for %1 ms").arg(ms);
}

QString useCustom(QWidget* widget, Dice& dice)
{
    const QPoint place(dice.below(qMax(1, widget->width())), dice.below(qMax(1, widget->height())));
    const QString obstacle = dice.oneIn(8) ? userinput::doubleClick(widget, place) : userinput::click(widget, place);
    return obstacle.isEmpty() ? QStringLiteral("clicks") : obstacle;
}

template <typename T>
bool isA(const QWidget* widget)
{
    return qobject_cast<const T*>(widget) != nullptr;
}

/// A widget of somebody's own, which may do anything with the mouse; not one that only holds others, nor a whole page.
bool isCustom(const QWidget* widget)
{
    return *widget->metaObject()->className() != 'Q' && widget->findChild<QWidget*>() == nullptr &&
           !isA<QStackedWidget>(widget->parentWidget());
}

struct KindRow {
    bool (*matches)(const QWidget*);
    QString (*use)(QWidget*, Dice&);
};

constexpr KindRow kKinds[] = {
    {isA<QAbstractButton>, useButton},     {isA<QAbstractSpinBox>, useSpinBox},
    {isA<QComboBox>, useComboBox},         {isA<QLineEdit>, useLineEdit},
    {isA<QPlainTextEdit>, useLineEdit},    {isA<QTextEdit>, useLineEdit},
    {isA<QAbstractItemView>, useItemView}, {isA<QTabBar>, useTabBar},
    {isA<PendantButton>, useHeld},         {isCustom, useCustom},
};

const KindRow* kindOf(const QWidget* widget)
{
    for (const KindRow& row : kKinds) {
        if (row.matches(widget)) {
            return &row;
        }
    }
    return nullptr;
}

/// A part of another usable widget, which uses it: the editor of a spin box, the scroll buttons of a tab bar.
bool isPart(const QWidget* widget)
{
    const QWidget* parent = widget->parentWidget();
    return isA<QAbstractSpinBox>(parent) || isA<QComboBox>(parent) || isA<QTabBar>(parent);
}

/// "3/1 in table" for what is in a cell, or pops up from it: its column, and its number in the cell. Empty outside of
/// tables.
QString placeInTable(const QWidget* widget)
{
    const QWidget* part = widget;
    for (const QWidget* cell = widget; cell->parentWidget() != nullptr; cell = cell->parentWidget()) {
        const auto* view = qobject_cast<const QAbstractItemView*>(cell->parentWidget()->parentWidget());
        if (view != nullptr && view->viewport() == cell->parentWidget()) {
            const int column = view->indexAt(cell->geometry().center()).column();
            const int number = qMax(0, cell->children().indexOf(const_cast<QWidget*>(part)));
            return QStringLiteral("%1/%2 in %3")
                .arg(QString::number(column), QString::number(number), view->objectName());
        }
        part = cell;
    }
    return {};
}

} // namespace

QVector<QWidget*> usable(const QWidget* root)
{
    QVector<QWidget*> found;
    const QList<QWidget*> all = root->findChildren<QWidget*>();
    for (QWidget* widget : all) {
        if (widget->isVisible() && widget->isEnabled() && kindOf(widget) != nullptr && !isPart(widget)) {
            found.append(widget);
        }
    }
    return found;
}

bool isToBeChosen(const QWidget* widget)
{
    const auto* combo = qobject_cast<const QComboBox*>(widget);
    return combo != nullptr && !combo->isEditable() && combo->count() > 1 && combo->currentText().isEmpty();
}

QString nameOf(const QWidget* widget)
{
    const QString kind = QLatin1String(widget->metaObject()->className());
    const QString place = placeInTable(widget);
    if (!place.isEmpty()) {
        return kind + QLatin1Char(' ') + place;
    }
    const auto* button = qobject_cast<const QAbstractButton*>(widget);
    const QString name = widget->objectName().isEmpty() && button != nullptr ? button->text() : widget->objectName();
    const QWidget* owner = widget->parentWidget();
    while (owner != nullptr && owner->objectName().isEmpty()) {
        owner = owner->parentWidget();
    }
    return QStringLiteral("%1 %2 in %3")
        .arg(kind, name, owner != nullptr ? owner->objectName() : QStringLiteral("nothing"));
}

QString use(QWidget* widget, Dice& dice)
{
    const KindRow* kind = kindOf(widget);
    return kind != nullptr ? kind->use(widget, dice) : QStringLiteral("is of no kind that can be used");
}

QString pressAnyKey(QWidget* root, Dice& dice)
{
    QWidget* focus = root->window()->focusWidget();
    QWidget* target = focus != nullptr ? focus : root;
    const Qt::Key key = kKeys[dice.below(static_cast<int>(std::size(kKeys)))];
    const Qt::KeyboardModifiers modifiers[] = {Qt::NoModifier,      Qt::NoModifier,    Qt::NoModifier,
                                               Qt::ControlModifier, Qt::ShiftModifier, Qt::AltModifier};
    const Qt::KeyboardModifiers modifier = modifiers[dice.below(static_cast<int>(std::size(modifiers)))];
    QString where = nameOf(target);
    press(target, key, modifier);
    return QStringLiteral("%1 on %2").arg(QKeySequence(int(key) | int(modifier)).toString(), where);
}

QString clickAnywhere(QWidget* root, Dice& dice)
{
    const QPoint place(dice.below(qMax(1, root->width())), dice.below(qMax(1, root->height())));
    QWidget* hit = root->childAt(place);
    QWidget* target = hit != nullptr ? hit : root;
    QString where = nameOf(target);
    const QPoint inTarget = target->mapFrom(root, place);
    const QString obstacle =
        dice.oneIn(4) ? userinput::doubleClick(target, inTarget) : userinput::click(target, inTarget);
    return QStringLiteral("%1 at %2,%3 %4")
        .arg(where, QString::number(place.x()), QString::number(place.y()), obstacle);
}

} // namespace hands
