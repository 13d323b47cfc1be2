#include "simulator/accessdelegate.h"

#include <QApplication>
#include <QPainter>

namespace sim
{

void AccessDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    if (!index.flags().testFlag(Qt::ItemIsEditable)) {
        return;
    }
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    QStyleOptionComboBox box;
    box.rect = cell.rect;
    box.direction = cell.direction;
    box.fontMetrics = cell.fontMetrics;
    box.palette = cell.palette;
    box.palette.setBrush(QPalette::ButtonText, cell.palette.brush(QPalette::Text));
    box.state = cell.state & ~(QStyle::State_HasFocus | QStyle::State_MouseOver | QStyle::State_Selected);
    box.currentText = cell.text;
    painter->save();
    painter->setFont(cell.font);
    const QStyle* style = option.widget != nullptr ? option.widget->style() : QApplication::style();
    style->drawComplexControl(QStyle::CC_ComboBox, &box, painter, option.widget);
    style->drawControl(QStyle::CE_ComboBoxLabel, &box, painter, option.widget);
    painter->restore();
}

} // namespace sim
