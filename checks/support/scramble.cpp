#include "checks/support/scramble.h"

#include <QJsonArray>
#include <QJsonObject>

#include <limits>

namespace
{

constexpr int kDeepest = 3;
constexpr int kLongest = 4;

/// Limits of the types that a reader may cast to, and the values around them.
constexpr double kNumbers[] = {0,
                               -0.0,
                               1,
                               -1,
                               2,
                               7,
                               10,
                               99.995,
                               300.5,
                               -0.4,
                               1e-9,
                               65535,
                               65536,
                               2147483647.0,
                               2147483648.0,
                               -2147483648.0,
                               -2147483649.0,
                               4294967296.0,
                               9007199254740993.0,
                               9223372036854775807.0,
                               -9223372036854775808.0,
                               1e19,
                               1e300,
                               -1e300,
                               std::numeric_limits<double>::denorm_min()};

constexpr const char* kTexts[] = {
    "",         " ",     "0",           "2",   "-1",   "TRUE", "NULL", "%1",   "%1%2%9", "a\"b",
    "\t",       "a\nb",  "99999999999", "1e9", "0x10", "DO1",  "DO10", "GO 3", "R[1]",   "\xe4\xb8\xad\xe6\x96\x87",
    "<b>x</b>", "&Save", "a,b",         "//"};

double anyNumber(Dice& dice)
{
    return dice.oneIn(3) ? dice.below(20000) - 10000 : kNumbers[dice.below(static_cast<int>(std::size(kNumbers)))];
}

QJsonValue anyValue(Dice& dice, int depth)
{
    switch (dice.below(depth < kDeepest ? 8 : 6)) {
    case 0:
        return QJsonValue::Null;
    case 1:
        return dice.oneIn(2);
    case 2:
    case 3:
    case 4:
        return anyNumber(dice);
    case 5:
        return anyText(dice);
    case 6: {
        QJsonArray array;
        for (int left = dice.below(kLongest); left > 0; --left) {
            array.append(anyValue(dice, depth + 1));
        }
        return array;
    }
    default: {
        QJsonObject object;
        for (int left = dice.below(kLongest); left > 0; --left) {
            object.insert(anyText(dice), anyValue(dice, depth + 1));
        }
        return object;
    }
    }
}

QJsonObject scrambledObject(const QJsonObject& object, Dice& dice)
{
    QJsonObject result;
    for (auto member = object.constBegin(); member != object.constEnd(); ++member) {
        if (dice.oneIn(16)) {
            // Left out, or under another member's name.
            if (dice.oneIn(2)) {
                result.insert(dice.oneOf(object.keys()), member.value());
            }
            continue;
        }
        result.insert(member.key(), scrambled(member.value(), dice));
    }
    if (dice.oneIn(16)) {
        result.insert(anyText(dice), anyValue(dice));
    }
    return result;
}

QJsonArray scrambledArray(const QJsonArray& array, Dice& dice)
{
    QJsonArray result;
    for (const QJsonValue element : array) {
        const int copies = dice.oneIn(16) ? dice.below(3) : 1;
        for (int copy = 0; copy < copies; ++copy) {
            result.insert(dice.oneIn(16) ? dice.below(result.size() + 1) : result.size(), scrambled(element, dice));
        }
    }
    return result;
}

} // namespace

QString anyText(Dice& dice)
{
    QString text;
    for (int left = dice.below(kLongest); left >= 0; --left) {
        if (dice.oneIn(2)) {
            text += QString::fromUtf8(kTexts[dice.below(static_cast<int>(std::size(kTexts)))]);
        } else {
            text += QChar(' ' + dice.below('~' - ' ' + 1));
        }
    }
    return text;
}

QJsonValue anyValue(Dice& dice)
{
    return anyValue(dice, 0);
}

QJsonValue scrambled(const QJsonValue& value, Dice& dice)
{
    if (dice.oneIn(12)) {
        return anyValue(dice);
    }
    switch (value.type()) {
    case QJsonValue::Object:
        return scrambledObject(value.toObject(), dice);
    case QJsonValue::Array:
        return scrambledArray(value.toArray(), dice);
    default:
        return value;
    }
}
