#include "checks/fuzz/ordercheck.h"

#include "checks/fuzz/require.h"
#include "common/mjson.h"
#include "common/naturalorder.h"

#include <QRegularExpression>

#include <algorithm>
#include <cstdlib>

namespace fuzz
{

namespace
{

/// A digit run beyond an int is compared as text by its definition, and then the order may turn in a circle.
bool isComparable(const QString& name)
{
    static const QRegularExpression longRun(QStringLiteral("[0-9]{10}"));
    return !longRun.match(name).hasMatch();
}

/// Whether a name stands before another one in the list of the two, however they were given.
bool isBefore(const QString& a, const QString& b)
{
    return a != b && sortedNaturally({b, a}).first() == a;
}

void checkTriple(const QString& a, const QString& b, const QString& c)
{
    const bool ab = isBefore(a, b);
    const bool bc = isBefore(b, c);
    require(!(ab && isBefore(b, a)), "two names stand before each other");
    require(!(ab && bc) || isBefore(a, c), "the order is not transitive");
    const auto equal = [](const QString& x, const QString& y) { return !isBefore(x, y) && !isBefore(y, x); };
    require(!(equal(a, b) && equal(b, c)) || equal(a, c), "what equals the same name is not equal");
}

/// Names that differ in a number only stand in the order of the numbers.
void checkNumbers(const QString& name, int number)
{
    const bool joins = !name.isEmpty() && name.back() >= QLatin1Char('0') && name.back() <= QLatin1Char('9');
    const QString stem = joins ? name + QLatin1Char('.') : name;
    const int smaller = std::abs(number % 100000);
    const int greater = smaller * 7 + 1;
    require(isBefore(stem + QString::number(smaller), stem + QString::number(greater)),
            "numbers stand in a wrong order");
    require(isBefore(stem + QString::number(smaller) + QLatin1String(" x"),
                     stem + QString::number(greater) + QLatin1String(" a")),
            "what follows a number counts more than the number");
}

} // namespace

QStringList sortedTexts(QStringList list)
{
    list.sort();
    return list;
}

void checkSorted(const QStringList& list)
{
    for (int i = 1; i < list.size(); ++i) {
        require(!isBefore(list.at(i), list.at(i - 1)), "a list is not in natural order");
    }
}

void checkOrder(const QStringList& names, int number)
{
    const QStringList sorted = mJson::naturalSort(names);
    require(sortedTexts(sorted) == sortedTexts(names), "sorting loses, adds or changes names");
    checkSorted(sorted);
    QStringList comparable;
    std::copy_if(names.begin(), names.end(), std::back_inserter(comparable), isComparable);
    const QStringList once = sortedNaturally(comparable);
    require(sortedNaturally(once) == once, "sorting a sorted list changes it");
    for (int i = 0; i + 2 < comparable.size(); ++i) {
        for (int k = i + 1; k + 1 < comparable.size(); ++k) {
            checkTriple(comparable.at(i), comparable.at(k), comparable.at(k + 1));
        }
    }
    for (const QString& name : names) {
        checkNumbers(name, number);
    }
}

} // namespace fuzz
