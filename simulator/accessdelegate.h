#ifndef SIMULATOR_ACCESSDELEGATE_H
#define SIMULATOR_ACCESSDELEGATE_H

#include <QStyledItemDelegate>

namespace sim
{

/// Shows a cell that can be edited as a combo box, so that it can be seen that a click offers a choice. The choice
/// itself is a menu of whoever has the table: a table of thousands of rows has no widget in any of them.
class AccessDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

} // namespace sim

#endif
