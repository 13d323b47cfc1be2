#include "widgets/listcombobox.h"

#include "widgets/numberlistmodel.h"
#include "widgets/uiscale_popup.h"

#include <QAbstractItemView>
#include <QEvent>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QStyledItemDelegate>
#include <QWheelEvent>

#include <memory>

namespace
{

constexpr int kCharacters = 8;       // as in "Weld_DO1"; a form may say another number
constexpr int kMostListed = 1000000; // what a popup list can lay out before a person loses patience

} // namespace

ListComboBox::ListComboBox(QWidget* parent) : QComboBox(parent)
{
    setMinimumContentsLength(kCharacters);
}

void ListComboBox::setNames(const QStringList& names)
{
    const auto offered = m_list != nullptr ? m_list->entries().dynamicCast<NameListModel>() : nullptr;
    const bool isOffered = offered != nullptr && offered->names() == names;
    setNames(isOffered ? offered : QSharedPointer<NameListModel>::create(names));
}

void ListComboBox::setNames(const QSharedPointer<NameListModel>& names)
{
    setEntries(names);
}

bool ListComboBox::offers(const QSharedPointer<NameListModel>& names) const
{
    return m_list != nullptr && m_list->entries() == names;
}

void ListComboBox::setNumbers(int count)
{
    const int most = qMax(count, 1);
    const auto offered = m_list != nullptr ? m_list->entries().dynamicCast<NumberListModel>() : nullptr;
    const bool isOffered = offered != nullptr && offered->rowCount() == most;
    setEntries(isOffered ? offered : QSharedPointer<NumberListModel>::create(most));
}

/// Offers other entries and selects the first; null is ignored.
void ListComboBox::setEntries(const ExchangeableList::Entries& entries)
{
    if (entries == nullptr) {
        return;
    }
    const QSignalBlocker silent(this);
    if (m_list == nullptr) {
        const QAbstractItemView* list = madeList();
        const std::unique_ptr<QItemSelectionModel> former(list != nullptr ? list->selectionModel() : nullptr);
        m_list = new ExchangeableList(this);
        setModel(m_list);
    }
    if (m_list->entries() != entries) {
        if (madeList() != nullptr) {
            // Even a list that is not on the screen lays out all entries when a style or a font changes.
            setListModel(nullptr);
        }
        m_list->exchange(entries);
    }
    setCurrentIndex(0);
}

/// The popup list, if there is one yet: view() would make it, and every widget costs when a page is styled.
QAbstractItemView* ListComboBox::madeList() const
{
    return findChild<QAbstractItemView*>();
}

void ListComboBox::setListModel(QAbstractItemModel* listed)
{
    // The view makes itself a selection model for every model, and would keep the former ones.
    const std::unique_ptr<QItemSelectionModel> former(view()->selectionModel());
    view()->setModel(listed);
}

QSize ListComboBox::sizeHint() const
{
    QStyleOptionComboBox option;
    initStyleOption(&option);
    constexpr int kLeastTextHeight = 14; // as in any combo box
    const QSize text(minimumContentsLength() * fontMetrics().horizontalAdvance(QLatin1Char('X')),
                     qMax(fontMetrics().height(), kLeastTextHeight) + 2);
    return style()->sizeFromContents(QStyle::CT_ComboBox, &option, text, this);
}

QSize ListComboBox::minimumSizeHint() const
{
    return sizeHint();
}

void ListComboBox::showPopup()
{
    if (count() > kMostListed) {
        return;
    }
    prepareList();
    QComboBox::showPopup();
}

void ListComboBox::keyPressEvent(QKeyEvent* event)
{
    if (count() > kMostListed) {
        event->ignore(); // the list would be laid out for it
        return;
    }
    prepareList(); // a typed letter is searched for in the popup list, open or not
    QComboBox::keyPressEvent(event);
}

void ListComboBox::wheelEvent(QWheelEvent* event)
{
    event->ignore(); // it scrolls what the box stands on; passing over a box must not choose anything
}

void ListComboBox::changeEvent(QEvent* event)
{
    // A combo box answers a new font by making its popup list and laying out every entry. The list inherits the font
    // anyhow, and lays itself out when it is shown.
    if (event->type() == QEvent::FontChange) {
        updateGeometry();
        update();
    } else if (event->type() == QEvent::StyleChange && madeList() == nullptr) {
        // The same with a new style, of which the popup list learns when it is made.
        QWidget::changeEvent(event); // NOLINT(bugprone-parent-virtual-call): QComboBox would make the list
    } else {
        QComboBox::changeEvent(event);
    }
}

/// Makes up for what was put off until the popup list is needed.
void ListComboBox::prepareList()
{
    UiScale::configurePopupList(view());
    if (qobject_cast<QStyledItemDelegate*>(itemDelegate()) == nullptr) {
        // A combo box's own delegate knows nothing of a sheet's rule for the height of the entries.
        setItemDelegate(new QStyledItemDelegate(this));
    }
    if (view()->model() != model()) {
        setListModel(model());
        connect(view()->selectionModel(), &QItemSelectionModel::currentChanged, this,
                [this](const QModelIndex& current) { emit highlighted(current.row()); });
    }
}
