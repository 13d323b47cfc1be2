#ifndef CHECKS_FUZZ_ORDERCHECK_H
#define CHECKS_FUZZ_ORDERCHECK_H

#include <QStringList>

namespace fuzz
{

/// The names by their characters, so that two lists of the same names are equal.
QStringList sortedTexts(QStringList list);

/// Ends the process unless each name may follow the one before it in the natural order.
void checkSorted(const QStringList& list);

/// Ends the process unless sorting the names keeps them all and the natural order is one: no two names before each
/// other, no circles, numbers by their value. number: any, for the names that are made up out of the given ones.
void checkOrder(const QStringList& names, int number);

} // namespace fuzz

#endif
