#ifndef CHECKS_FUZZ_DAMAGE_H
#define CHECKS_FUZZ_DAMAGE_H

#include "checks/support/dice.h"

#include <QJsonValue>

namespace fuzz
{

/// A cell's content with the first elements of every list and the first parameter set only: as sound as the whole
/// one and read in a fraction of the time.
QJsonValue shortened(const QJsonValue& value);

/// A copy with one thing wrong somewhere: a value, or a member or element missing, repeated or under another name.
QJsonValue damaged(const QJsonValue& value, Dice& dice);

} // namespace fuzz

#endif
