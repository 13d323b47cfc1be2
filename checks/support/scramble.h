#ifndef CHECKS_SUPPORT_SCRAMBLE_H
#define CHECKS_SUPPORT_SCRAMBLE_H

#include "checks/support/dice.h"

#include <QJsonValue>

/// Any JSON value: numbers at and beyond the limits of their types, fractions, texts that look like numbers or
/// place holders, nested containers.
QJsonValue anyValue(Dice& dice);

/// A copy in which some values have been exchanged, removed, repeated or moved: sound enough to get through
/// the first checks of a reader, and wrong somewhere behind them.
QJsonValue scrambled(const QJsonValue& value, Dice& dice);

/// A text of up to some dozen characters: digits, letters, quotes, blanks, line ends, place holders, Chinese.
QString anyText(Dice& dice);

#endif
