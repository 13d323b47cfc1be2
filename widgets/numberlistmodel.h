#ifndef WIDGETS_NUMBERLISTMODEL_H
#define WIDGETS_NUMBERLISTMODEL_H

#include <QAbstractListModel>

/// The numbers from 1 to count. They are not kept anywhere: a long list costs what a short one does.
class NumberListModel : public QAbstractListModel
{
    Q_OBJECT

public:
    explicit NumberListModel(int count) : m_count(count) {}

    int rowCount(const QModelIndex& parent = QModelIndex()) const override { return parent.isValid() ? 0 : m_count; }
    QVariant data(const QModelIndex& index, int role) const override
    {
        const bool isText = role == Qt::DisplayRole || role == Qt::EditRole;
        return isText && index.isValid() ? QString::number(index.row() + 1) : QVariant();
    }

private:
    int m_count;
};

#endif
