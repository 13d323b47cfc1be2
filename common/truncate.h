#ifndef COMMON_TRUNCATE_H
#define COMMON_TRUNCATE_H

#include <algorithm>
#include <limits>

/// A number from outside as an int: truncated toward zero, and bounded to the range of int before the cast,
/// which has no defined result beyond it.
inline int truncatedToInt(double value)
{
    return static_cast<int>(
        std::clamp<double>(value, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

#endif
