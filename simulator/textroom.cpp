#include "simulator/textroom.h"

#include "simulator/itemrooms.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QStyle>
#include <QStyleOption>
#include <QTextDocument>
#include <QToolButton>

#include <algorithm>

namespace sim
{

namespace
{

using Rooms = QVector<TextRoom>;

constexpr int kIconGap = 4;        ///< of the styles, between a picture and its text
constexpr int kLineEditMargin = 2; ///< of QLineEdit, left and right of its text
constexpr int kCursorWidth = 1;
constexpr int kComboMargin = 1; ///< of the styles, left and right of a combo box's text
/// What a tool button asks for beyond what its text needs not to be cut.
constexpr QSize kToolButtonSlack(3, 3);
/// Large enough that no style's least size counts.
constexpr QSize kLarge(1000, 1000);

/// Opens the protected members by which Qt's widgets describe themselves to their style.
template <class Widget>
struct Opened : Widget {
    using Widget::initStyleOption;
};

template <class Widget, class Option>
Option optionOf(const Widget* widget)
{
    Option option;
    (widget->*(&Opened<Widget>::initStyleOption))(&option);
    return option;
}

struct OpenedSpinBox : QSpinBox {
    using QSpinBox::textFromValue;
};

QSize textSize(const QWidget* widget, const QString& text)
{
    return widget->fontMetrics().size(Qt::TextShowMnemonic, text);
}

QSize besideIcon(const QSize& text, const QSize& icon)
{
    return {icon.width() + kIconGap + text.width(), qMax(icon.height(), text.height())};
}

QSize wrappedNeed(const QLabel* label, const QSize& room)
{
    // Breaks at words only: one that is wider than the room makes the text wider.
    return label->fontMetrics()
        .boundingRect(QRect(QPoint(), QSize(room.width(), QWIDGETSIZE_MAX)), Qt::TextWordWrap, label->text())
        .size();
}

QSize labelRoom(const QLabel* label)
{
    const int margin = 2 * label->margin();
    QSize room = label->contentsRect().size() - QSize(margin, margin);
    const bool isIndented = label->indent() >= 0 || label->frameWidth() > 0;
    const int indent =
        label->indent() >= 0 ? label->indent() : label->fontMetrics().horizontalAdvance(QLatin1Char('x')) / 2;
    if (isIndented && (label->alignment() & Qt::AlignHCenter) == 0) {
        room.rwidth() -= indent;
    }
    return room;
}

Rooms labelRooms(const QWidget* widget)
{
    const auto* label = static_cast<const QLabel*>(widget);
    const QSize room = labelRoom(label);
    const QPixmap picture = label->pixmap(Qt::ReturnByValue);
    if (!picture.isNull()) {
        const QSize size = picture.size() / picture.devicePixelRatio();
        return {{QString(), label->hasScaledContents() ? QSize() : size, room}};
    }
    const QString text = label->text();
    if (text.trimmed().isEmpty()) {
        return {};
    }
    const bool isRich =
        label->textFormat() == Qt::RichText || (label->textFormat() == Qt::AutoText && Qt::mightBeRichText(text));
    if (isRich) {
        QTextDocument document;
        document.setDefaultFont(label->font());
        document.setDocumentMargin(0);
        document.setHtml(text);
        if (label->wordWrap()) {
            document.setTextWidth(room.width());
        }
        return {{document.toPlainText(), document.size().toSize(), room}};
    }
    return {{text, label->wordWrap() ? wrappedNeed(label, room) : textSize(label, text), room}};
}

Rooms pushButtonRooms(const QWidget* widget)
{
    const auto option = optionOf<QPushButton, QStyleOptionButton>(static_cast<const QPushButton*>(widget));
    const QSize room = widget->style()->subElementRect(QStyle::SE_PushButtonContents, &option, widget).size();
    const QSize text = textSize(widget, option.text);
    return {{option.text, option.icon.isNull() ? text : besideIcon(text, option.iconSize), room}};
}

Rooms toolButtonRooms(const QWidget* widget)
{
    const auto option = optionOf<QToolButton, QStyleOptionToolButton>(static_cast<const QToolButton*>(widget));
    const QSize margins =
        widget->style()->sizeFromContents(QStyle::CT_ToolButton, &option, kLarge, widget) - kLarge - kToolButtonSlack;
    const QSize room = widget->size() - QSize(qMax(0, margins.width()), qMax(0, margins.height()));
    const bool hasIcon = !option.icon.isNull();
    const QSize text = textSize(widget, option.text);
    if (option.text.isEmpty() || (hasIcon && option.toolButtonStyle == Qt::ToolButtonIconOnly)) {
        return {{QString(), hasIcon ? option.iconSize : QSize(), room}};
    }
    if (hasIcon && option.toolButtonStyle == Qt::ToolButtonTextUnderIcon) {
        const QSize both(qMax(text.width(), option.iconSize.width()), text.height() + option.iconSize.height());
        return {{option.text, both, room}};
    }
    const bool isBeside = hasIcon && option.toolButtonStyle == Qt::ToolButtonTextBesideIcon;
    return {{option.text, isBeside ? besideIcon(text, option.iconSize) : text, room}};
}

template <class Button, QStyle::SubElement contents>
Rooms markedButtonRooms(const QWidget* widget)
{
    const auto option = optionOf<Button, QStyleOptionButton>(static_cast<const Button*>(widget));
    const QSize room = widget->style()->subElementRect(contents, &option, widget).size();
    const QSize text = textSize(widget, option.text);
    return {{option.text, option.icon.isNull() ? text : besideIcon(text, option.iconSize), room}};
}

QSize lineEditRoom(const QLineEdit* edit)
{
    const auto option = optionOf<QLineEdit, QStyleOptionFrame>(edit);
    const QRect contents = edit->style()->subElementRect(QStyle::SE_LineEditContents, &option, edit);
    return contents.marginsRemoved(edit->textMargins()).size() - QSize(2 * kLineEditMargin, 0);
}

/// The widest of the texts that a widget shows in one and the same place; the others are whole when it is.
Rooms widest(const QWidget* widget, const QStringList& texts, const QSize& room)
{
    TextRoom result{{}, {}, room};
    for (const QString& text : texts) {
        // Without the space that a font leaves behind the last letter.
        const int width = widget->fontMetrics().boundingRect(text).right() + 1;
        const QSize size(qMin(width, widget->fontMetrics().horizontalAdvance(text)), widget->fontMetrics().height());
        if (!text.isEmpty() && size.width() > result.needed.width()) {
            result.text = text;
            result.needed = size;
        }
    }
    return {result};
}

Rooms lineEditRooms(const QLineEdit* edit, const QStringList& texts)
{
    return widest(edit, texts, lineEditRoom(edit) - QSize(kCursorWidth, 0));
}

Rooms ownLineEditRooms(const QWidget* widget)
{
    const auto* edit = static_cast<const QLineEdit*>(widget);
    QStringList texts{edit->placeholderText()};
    if (!edit->isModified()) {
        texts.append(edit->displayText());
    }
    return lineEditRooms(edit, texts);
}

Rooms spinBoxRooms(const QWidget* widget)
{
    const auto* box = static_cast<const QAbstractSpinBox*>(widget);
    QStringList texts{box->text(), box->specialValueText()};
    const auto addEnds = [&texts](const auto* spin, const auto& write) {
        for (const auto value : {spin->minimum(), spin->maximum()}) {
            texts.append(spin->prefix() + write(value) + spin->suffix());
        }
    };
    if (const auto* whole = qobject_cast<const QSpinBox*>(box)) {
        addEnds(whole, [whole](int value) { return (whole->*(&OpenedSpinBox::textFromValue))(value); });
    } else if (const auto* broken = qobject_cast<const QDoubleSpinBox*>(box)) {
        addEnds(broken, [broken](double value) { return broken->textFromValue(value); });
    }
    const auto* edit = box->findChild<const QLineEdit*>(QString(), Qt::FindDirectChildrenOnly);
    return edit != nullptr ? lineEditRooms(edit, texts) : Rooms();
}

/// Whether a combo box was told not to take its width from its entries, as for names that come from elsewhere.
bool holdsData(const QComboBox* box)
{
    return box->sizeAdjustPolicy() != QComboBox::AdjustToContents &&
           box->sizeAdjustPolicy() != QComboBox::AdjustToContentsOnFirstShow;
}

Rooms comboBoxRooms(const QWidget* widget)
{
    const auto* box = static_cast<const QComboBox*>(widget);
    if (box->isEditable()) {
        return ownLineEditRooms(box->lineEdit());
    }
    const auto option = optionOf<QComboBox, QStyleOptionComboBox>(box);
    const QRect field = box->style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, box);
    QStringList entries{box->currentText()};
    bool hasIcons = false;
    for (int i = 0; i < box->count(); ++i) {
        // Data may be longer than their field, but not what it promises room for.
        if (!holdsData(box) || box->itemText(i).size() <= box->minimumContentsLength()) {
            entries.append(box->itemText(i));
        }
        hasIcons = hasIcons || !box->itemIcon(i).isNull();
    }
    const int icon = hasIcons ? box->iconSize().width() + kIconGap : 0;
    return widest(box, entries, field.size() - QSize(2 * kComboMargin + icon, 0));
}

Rooms groupBoxRooms(const QWidget* widget)
{
    const auto option = optionOf<QGroupBox, QStyleOptionGroupBox>(static_cast<const QGroupBox*>(widget));
    const QRect label = widget->style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxLabel, widget);
    return {{option.text, textSize(widget, option.text), label.intersected(widget->rect()).size()}};
}

/// By class, derived ones before their bases.
constexpr struct {
    const char* className;
    Rooms (*rooms)(const QWidget* widget);
} kRules[] = {
    {"QLabel", labelRooms},
    {"QPushButton", pushButtonRooms},
    {"QToolButton", toolButtonRooms},
    {"QCheckBox", markedButtonRooms<QCheckBox, QStyle::SE_CheckBoxContents>},
    {"QRadioButton", markedButtonRooms<QRadioButton, QStyle::SE_RadioButtonContents>},
    {"QLineEdit", ownLineEditRooms},
    {"QAbstractSpinBox", spinBoxRooms},
    {"QComboBox", comboBoxRooms},
    {"QGroupBox", groupBoxRooms},
    {"QTabBar", tabBarRooms},
    {"QHeaderView", headerRooms},
    {"QAbstractItemView", cellRooms},
};

} // namespace

QVector<TextRoom> textRooms(const QWidget* widget)
{
    for (const auto& rule : kRules) {
        if (widget->inherits(rule.className)) {
            Rooms rooms = rule.rooms(widget);
            const auto isNothing = [](const TextRoom& room) { return room.text.isEmpty() && room.needed.isEmpty(); };
            rooms.erase(std::remove_if(rooms.begin(), rooms.end(), isNothing), rooms.end());
            return rooms;
        }
    }
    return {};
}

} // namespace sim
