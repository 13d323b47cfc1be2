#ifndef WIDGETS_LISTCOMBOBOX_H
#define WIDGETS_LISTCOMBOBOX_H

#include "widgets/exchangeablelist.h"
#include "widgets/namelistmodel.h"

#include <QComboBox>
#include <QSharedPointer>

class QAbstractItemView;

/// A combo box whose list may be 100,000 entries long: nothing but opening it, and looking a text up, takes longer with
/// a longer list; one of more than a million entries does not open. It measures none of its entries but is as wide as
/// minimumContentsLength() characters (8 unless set), whatever its size policy says, and lays out its popup list only
/// when that is opened. Not to be made editable, nor given another model.
class ListComboBox : public QComboBox
{
    Q_OBJECT

public:
    explicit ListComboBox(QWidget* parent = nullptr);

    /// Offers an empty entry and then the names, and selects the empty entry. Silent. A list that it offers already
    /// is not filled in again.
    void setNames(const QStringList& names);

    /// The same with a list that other combo boxes share; null is ignored.
    void setNames(const QSharedPointer<NameListModel>& names);

    /// Whether it offers that very list.
    bool offers(const QSharedPointer<NameListModel>& names) const;

    /// Offers the numbers from 1 to count, at least 1, and selects the first. Silent.
    void setNumbers(int count);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override; ///< The same as sizeHint.
    void showPopup() override;

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void setEntries(const ExchangeableList::Entries& entries);
    QAbstractItemView* madeList() const;
    void setListModel(QAbstractItemModel* listed);
    void prepareList();

    ExchangeableList* m_list = nullptr; ///< its model since it was given names or numbers; its child
};

#endif
