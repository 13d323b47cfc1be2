#include "simulator/itemrooms.h"

#include <QAbstractItemView>
#include <QHeaderView>
#include <QStyle>
#include <QStyleOption>
#include <QTabBar>

namespace sim
{

namespace
{

/// Opens the protected member by which a tab bar describes a tab to its style.
struct OpenedTabBar : QTabBar {
    using QTabBar::initStyleOption;
};

} // namespace

QVector<TextRoom> tabBarRooms(const QWidget* widget)
{
    const auto* bar = static_cast<const QTabBar*>(widget);
    QVector<TextRoom> rooms;
    for (int tab = 0; tab < bar->count(); ++tab) {
        QStyleOptionTab option;
        (bar->*(&OpenedTabBar::initStyleOption))(&option, tab);
        const QRect room = bar->style()->subElementRect(QStyle::SE_TabBarTabText, &option, bar);
        rooms.append(
            {bar->tabText(tab), bar->fontMetrics().size(Qt::TextShowMnemonic, bar->tabText(tab)), room.size()});
    }
    return rooms;
}

QVector<TextRoom> headerRooms(const QWidget* widget)
{
    const auto* header = static_cast<const QHeaderView*>(widget);
    const bool isHorizontal = header->orientation() == Qt::Horizontal;
    QVector<TextRoom> rooms;
    for (int section = 0; section < header->count(); ++section) {
        const QString text = header->model()->headerData(section, header->orientation()).toString();
        const int size = header->sectionSize(section);
        if (text.isEmpty() || header->isSectionHidden(section)) {
            continue;
        }
        QStyleOptionHeader option;
        option.initFrom(header);
        option.orientation = header->orientation();
        option.section = section;
        option.text = text;
        option.rect = QRect(QPoint(), isHorizontal ? QSize(size, header->height()) : QSize(header->width(), size));
        const QRect room = header->style()->subElementRect(QStyle::SE_HeaderLabel, &option, header);
        rooms.append({text, header->fontMetrics().size(0, text), room.size()});
    }
    return rooms;
}

/// The cells that can be seen; what scrolls away is seen when it comes back.
QVector<TextRoom> cellRooms(const QWidget* widget)
{
    const auto* view = static_cast<const QAbstractItemView*>(widget);
    QVector<TextRoom> rooms;
    const QModelIndex root = view->rootIndex();
    for (int row = 0; view->model() != nullptr && row < view->model()->rowCount(root); ++row) {
        for (int column = 0; column < view->model()->columnCount(root); ++column) {
            const QModelIndex cell = view->model()->index(row, column, root);
            const QRect place = view->visualRect(cell);
            const QString text = cell.data().toString();
            if (text.isEmpty() || view->indexWidget(cell) != nullptr || !view->viewport()->rect().intersects(place)) {
                continue;
            }
            QStyleOptionViewItem option;
            option.initFrom(view);
            option.rect = place;
            option.font = view->font();
            rooms.append({text, view->itemDelegate(cell)->sizeHint(option, cell), place.size()});
        }
    }
    return rooms;
}

} // namespace sim
