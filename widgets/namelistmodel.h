#ifndef WIDGETS_NAMELISTMODEL_H
#define WIDGETS_NAMELISTMODEL_H

#include <QAbstractListModel>
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

    /// The first row of an exact text is searched for in the names themselves, without an item for each. A table to
    /// look it up in would be dearer: making one costs what dozens of searches do, and a page has few names to find.
    QModelIndexList match(const QModelIndex& start, int role, const QVariant& value, int hits,
                          Qt::MatchFlags flags) const override;

private:
    QStringList m_names;
};

#endif
