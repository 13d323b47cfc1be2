#ifndef COMMON_NATURALORDER_H
#define COMMON_NATURALORDER_H

#include <QStringList>

/// A copy of the names in natural order: runs of ASCII letters and runs of ASCII digits are compared one
/// by one, digits by value (DO2 before DO10), letters case-sensitively; other characters only separate.
/// A digit run too long for an int is compared as text. Names that compare equal keep their order.
QStringList sortedNaturally(const QStringList& names);

#endif
