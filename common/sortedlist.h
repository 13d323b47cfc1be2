#ifndef COMMON_SORTEDLIST_H
#define COMMON_SORTEDLIST_H

#include "common/naturalorder.h"

#include <QStringList>

/// A list in natural order. It is sorted again only when what it is made of has changed; an unchanged one comes back
/// as the same shared copy, which compares as fast as an empty list.
class SortedList
{
public:
    /// names in natural order, see sortedNaturally.
    QStringList of(const QStringList& names)
    {
        if (names != m_names) {
            m_names = names;
            m_sorted = sortedNaturally(names);
        }
        return m_sorted;
    }

private:
    QStringList m_names;
    QStringList m_sorted;
};

#endif
