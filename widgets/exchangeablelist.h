#ifndef WIDGETS_EXCHANGEABLELIST_H
#define WIDGETS_EXCHANGEABLELIST_H

#include <QAbstractListModel>
#include <QSharedPointer>

/// The entries of a list that can be exchanged for another one. A combo box takes a change of its model's entries ten
/// times as fast as another model.
class ExchangeableList : public QAbstractListModel
{
    Q_OBJECT

public:
    using Entries = QSharedPointer<QAbstractItemModel>;

    using QAbstractListModel::QAbstractListModel;

    /// Null until they are exchanged for the first time.
    const Entries& entries() const { return m_entries; }

    /// Offers the rows of a model, which never change; not null.
    void exchange(const Entries& entries)
    {
        beginResetModel();
        m_entries = entries;
        endResetModel();
    }

    int rowCount(const QModelIndex& parent = QModelIndex()) const override
    {
        return parent.isValid() || m_entries == nullptr ? 0 : m_entries->rowCount();
    }

    QVariant data(const QModelIndex& index, int role) const override
    {
        return index.isValid() ? m_entries->data(m_entries->index(index.row(), 0), role) : QVariant();
    }

    QModelIndexList match(const QModelIndex& start, int role, const QVariant& value, int hits,
                          Qt::MatchFlags flags) const override
    {
        QModelIndexList found;
        if (start.isValid()) {
            const QModelIndex first = m_entries->index(start.row(), 0);
            for (const QModelIndex& entry : m_entries->match(first, role, value, hits, flags)) {
                found.append(index(entry.row()));
            }
        }
        return found;
    }

private:
    Entries m_entries;
};

#endif
