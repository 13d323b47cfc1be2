#include "widgets/namelistmodel.h"

#include <algorithm>

NameListModel::NameListModel(const QStringList& names) : m_names(names) {}

int NameListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_names.size() + 1;
}

QVariant NameListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::EditRole)) {
        return {};
    }
    // Empty, not null: only the former matches a search for nothing.
    return index.row() == 0 ? QStringLiteral("") : m_names.at(index.row() - 1);
}

QModelIndexList NameListModel::match(const QModelIndex& start, int role, const QVariant& value, int hits,
                                     Qt::MatchFlags flags) const
{
    const bool exact = flags == (Qt::MatchExactly | Qt::MatchCaseSensitive) && value.type() == QVariant::String;
    if (!exact || hits != 1 || start.row() != 0 || role != Qt::DisplayRole) {
        return QAbstractListModel::match(start, role, value, hits, flags);
    }
    const QString text = value.toString();
    if (text.isEmpty()) {
        return {index(0)};
    }
    // The ends first: names of a list differ there, and begin alike.
    const auto found = std::find_if(m_names.begin(), m_names.end(), [&text](const QString& name) {
        return name.size() == text.size() && name.back() == text.back() && name == text;
    });
    return found == m_names.end() ? QModelIndexList()
                                  : QModelIndexList{index(static_cast<int>(found - m_names.begin()) + 1)};
}
