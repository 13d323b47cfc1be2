#include "checks/fuzz/damage.h"

#include "checks/support/scramble.h"

#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>

namespace fuzz
{

QJsonValue shortened(const QJsonValue& value)
{
    constexpr int kKept = 4; // a match table has no fewer rows
    const QJsonArray elements = value.toArray();
    // The numbers of one row belong together.
    const int kept = elements.first().isDouble() ? elements.size() : std::min(kKept, elements.size());
    QJsonArray array;
    for (int i = 0; i < kept; ++i) {
        array.append(shortened(elements.at(i)));
    }
    QJsonObject object;
    const QJsonObject members = value.toObject();
    for (auto member = members.constBegin(); member != members.constEnd(); ++member) {
        const bool numbered = member.key().startsWith(QLatin1String("LsData")) && member.value().isObject();
        if (!numbered || member.key() == QLatin1String("LsData1")) {
            object.insert(member.key(), shortened(member.value()));
        }
    }
    return value.isArray() ? QJsonValue(array) : value.isObject() ? QJsonValue(object) : value;
}

QJsonValue damaged(const QJsonValue& value, Dice& dice)
{
    const int damage = dice.below(12);
    if (value.isObject() && !value.toObject().isEmpty()) {
        QJsonObject object = value.toObject();
        const QString key = dice.oneOf(object.keys());
        if (damage == 0) {
            object.remove(key);
        } else {
            object.insert(damage == 1 ? anyText(dice) : key, damaged(object.value(key), dice));
        }
        return object;
    }
    if (value.isArray() && !value.toArray().isEmpty()) {
        QJsonArray array = value.toArray();
        const int position = dice.below(array.size());
        if (damage == 0) {
            array.removeAt(position);
        } else if (damage == 1) {
            array.append(array.at(position));
        } else {
            array.replace(position, damaged(array.at(position), dice));
        }
        return array;
    }
    return anyValue(dice);
}

} // namespace fuzz
