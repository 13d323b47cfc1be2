#include "widgets/listcombobox.h"

#include "widgets/uiscale_popup.h"

#include <QAbstractItemView>
#include <QEvent>
#include <QItemSelectionModel>
#include <QSignalBlocker>
#include <QStyle>
#include <QStyleOptionComboBox>

#include <memory>

namespace
{

constexpr int kCharacters = 8; // as in "Weld_DO1"; a form may say another number

} // namespace

ListComboBox::ListComboBox(QWidget* parent) : QComboBox(parent)
{
    setMinimumContentsLength(kCharacters);
}

void ListComboBox::setNames(const QStringList& names)
{
    if (m_names != nullptr && m_names->names() == names) {
        setNames(m_names);
    } else {
        setNames(QSharedPointer<NameListModel>::create(names));
    }
}

void ListComboBox::setNames(const QSharedPointer<NameListModel>& names)
{
    if (names == nullptr) {
        return;
    }
    const QSignalBlocker silent(this);
    if (model() != names.data()) {
        const std::unique_ptr<QItemSelectionModel> former(view()->selectionModel());
        setModel(names.data());
        m_names = names; // only now: the former list may end here
        // Even a list that is not on the screen lays out all entries when a style or a font changes.
        setListModel(nullptr);
    }
    setCurrentIndex(0);
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
    prepareList();
    QComboBox::showPopup();
}

void ListComboBox::keyPressEvent(QKeyEvent* event)
{
    prepareList(); // a typed letter is searched for in the popup list, open or not
    QComboBox::keyPressEvent(event);
}

void ListComboBox::changeEvent(QEvent* event)
{
    // A combo box answers a new font by making its popup list and laying out every entry. The list inherits the font
    // anyhow, and lays itself out when it is shown.
    if (event->type() == QEvent::FontChange) {
        updateGeometry();
        update();
    } else {
        QComboBox::changeEvent(event);
    }
}

/// Makes up for what was put off until the popup list is needed.
void ListComboBox::prepareList()
{
    UiScale::configurePopupList(view());
    if (view()->model() != model()) {
        setListModel(model());
        connect(view()->selectionModel(), &QItemSelectionModel::currentChanged, this,
                [this](const QModelIndex& current) { emit highlighted(current.row()); });
    }
}
