#ifndef WIDGETS_NAMELISTMODEL_H
#define WIDGETS_NAMELISTMODEL_H

#include <QAbstractListModel>
#include <QHash>
#include <QStringList>

/// An empty entry ("none chosen") and then a list of names, in the order given. Made once and never changed, so that
/// many combo boxes can share it.
class NameListModel : public QAbstractListModel
{
    Q_OBJECT

public:
    explicit NameListModel(const QStringList& names);

    const QStringList& names() const { return m_names; }

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;

    /// The first row of an exact text is looked up in a table, which the first search makes: a page looks up a stored
    /// name in each of its combo boxes. Other searches go through the list.
    QModelIndexList match(const QModelIndex& start, int role, const QVariant& value, int hits,
                          Qt::MatchFlags flags) const override;

private:
    QStringList m_names;
    mutable QHash<QString, int> m_rows; ///< of the first occurrence
};

#endif
