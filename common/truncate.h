#ifndef COMMON_TRUNCATE_H
#define COMMON_TRUNCATE_H

#include <algorithm>
#include <cmath>
#include <limits>

/// A number from outside as an int: truncated toward zero, and bounded to the range of int before the cast,
/// which has no defined result beyond it. What is no number at all is 0.
inline int truncatedToInt(double value)
{
    using Limits = std::numeric_limits<int>;
    return std::isnan(value) ? 0 : static_cast<int>(std::clamp<double>(value, Limits::min(), Limits::max()));
}

#endif
