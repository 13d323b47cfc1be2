#ifndef SIMULATOR_JOURNALMODEL_H
#define SIMULATOR_JOURNALMODEL_H

#include "simulator/journal.h"

#include <QAbstractTableModel>

#include <vector>

namespace sim
{

/// The journal as a table, held to the kinds that the user wants to see. Filtering is done here and not in a
/// proxy: QSortFilterProxyModel rebuilds its whole mapping for every row that arrives.
class JournalModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { Number, Time, Kind, What, ColumnCount };

    explicit JournalModel(const Journal* journal, QObject* parent = nullptr);

    bool isShown(EntryKind kind) const { return m_shown[static_cast<std::size_t>(kind)]; }
    void setShown(EntryKind kind, bool shown);

    /// Index in the journal of a row of this table.
    int entryOf(int row) const { return m_rows.at(static_cast<std::size_t>(row)); }

    /// The whole of a row for reading: remarks in words, JSON indented.
    QString detail(int row) const;
    /// What the column Kind shows for a command after which the operator was told nothing.
    static QString untoldMark();

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    void add(int entry);
    void refresh(int entry);
    QString cell(int entry, int column) const;

    const Journal* m_journal;
    std::vector<bool> m_shown;
    std::vector<int> m_rows; ///< journal indices in rising order
};

} // namespace sim

#endif
