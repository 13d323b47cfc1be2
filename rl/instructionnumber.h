#ifndef RL_INSTRUCTIONNUMBER_H
#define RL_INSTRUCTIONNUMBER_H

#include <QString>

#include <cmath>

/// A number as the motion instructions carry it: six significant digits, no trailing zeros.
inline QString instructionNumber(double value)
{
    constexpr int kSignificantDigits = 6;
    return QString::number(value, 'g', kSignificantDigits);
}

/// The number that an argument stands for; 0 when it is none, as "nan", "inf" and what is too large for a number are.
inline double instructionNumber(const QString& argument)
{
    const double value = argument.toDouble();
    return std::isfinite(value) ? value : 0.0;
}

#endif
