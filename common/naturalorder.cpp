#include "common/naturalorder.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace
{

/// A run of letters or digits inside one of the names, which outlive it.
struct Token {
    const QChar* begin;
    int length;
    int number; ///< -1: the token is text
};

/// The tokens of one name: a range of the shared token table.
struct SortKey {
    const Token* begin = nullptr;
    const Token* end = nullptr;
    int nameIndex = 0;
};

bool isDigit(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

bool isLetter(QChar c)
{
    return (c >= QLatin1Char('A') && c <= QLatin1Char('Z')) || (c >= QLatin1Char('a') && c <= QLatin1Char('z'));
}

/// Value of a digit run, -1 when it does not fit an int.
int numberOf(const QChar* begin, const QChar* end)
{
    qint64 value = 0;
    for (const QChar* c = begin; c != end; ++c) {
        value = value * 10 + (c->unicode() - u'0');
        if (value > std::numeric_limits<int>::max()) {
            return -1;
        }
    }
    return static_cast<int>(value);
}

void appendTokens(const QString& name, std::vector<Token>& tokens)
{
    const QChar* const end = name.constData() + name.size();
    for (const QChar* c = name.constData(); c != end;) {
        const QChar* const begin = c;
        if (isDigit(*c)) {
            c = std::find_if_not(c, end, isDigit);
            tokens.push_back({begin, static_cast<int>(c - begin), numberOf(begin, c)});
        } else if (isLetter(*c)) {
            c = std::find_if_not(c, end, isLetter);
            tokens.push_back({begin, static_cast<int>(c - begin), -1});
        } else {
            ++c;
        }
    }
}

int compareTexts(const Token& a, const Token& b)
{
    const int shorter = std::min(a.length, b.length);
    for (int i = 0; i < shorter; ++i) {
        if (a.begin[i] != b.begin[i]) {
            return a.begin[i] < b.begin[i] ? -1 : 1;
        }
    }
    return a.length - b.length;
}

int compareTokens(const Token& a, const Token& b)
{
    if (a.number >= 0 && b.number >= 0) {
        return a.number < b.number ? -1 : static_cast<int>(a.number > b.number);
    }
    return compareTexts(a, b);
}

bool lessThan(const SortKey& a, const SortKey& b)
{
    const Token* ta = a.begin;
    const Token* tb = b.begin;
    for (; ta != a.end && tb != b.end; ++ta, ++tb) {
        const int order = compareTokens(*ta, *tb);
        if (order != 0) {
            return order < 0;
        }
    }
    return ta == a.end && tb != b.end;
}

} // namespace

QStringList sortedNaturally(const QStringList& names)
{
    // Every name is split once, before the sort compares it a dozen times.
    std::vector<Token> tokens;
    tokens.reserve(static_cast<std::size_t>(names.size()) * 3);
    std::vector<std::size_t> ends;
    ends.reserve(static_cast<std::size_t>(names.size()));
    for (const QString& name : names) {
        appendTokens(name, tokens);
        ends.push_back(tokens.size());
    }
    std::vector<SortKey> keys(ends.size());
    std::size_t begin = 0;
    for (std::size_t i = 0; i < ends.size(); ++i) {
        keys[i] = {tokens.data() + begin, tokens.data() + ends[i], static_cast<int>(i)};
        begin = ends[i];
    }
    // Over-long digit runs make this no strict weak order, which only a merge sort survives.
    std::stable_sort(keys.begin(), keys.end(), lessThan);

    QStringList sorted;
    sorted.reserve(names.size());
    for (const SortKey& key : keys) {
        sorted.append(names.at(key.nameIndex));
    }
    return sorted;
}
