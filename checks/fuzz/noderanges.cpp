#include "checks/fuzz/noderanges.h"

#include "checks/fuzz/require.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <cmath>
#include <cstring>

namespace fuzz
{

namespace
{

constexpr char kSetting[] = "weld_setting_config";

constexpr NodeRange kRanges[] = {
    {kSetting, "laser_main_enable", QJsonValue::Bool},
    {kSetting, "laser_comm_type", QJsonValue::Double, 0, 0},
    {kSetting, "laser_power", QJsonValue::Double, 0, 9999},
    {kSetting, "feedback_delay", QJsonValue::Double, 0, 2000},
    {kSetting, "pre_gas_time", QJsonValue::Double, 0, 2000},
    {kSetting, "delay_off_time", QJsonValue::Double, 0, 2000},
    {kSetting, "detection_delay", QJsonValue::Double, 0, 2000},
    {kSetting, "manual_gas_time", QJsonValue::Double, 1000, 10000},
    {kSetting, "retraction_distance", QJsonValue::Double, 0, 50},
    {kSetting, "retraction_speed", QJsonValue::Double, 0, 100},
    {kSetting, "detection_time", QJsonValue::Double, 100, 1000},
    {kSetting, "feeder_enable", QJsonValue::Bool},
    {kSetting, "wire_feeder_comm_type", QJsonValue::Double, 0, 0},
    {kSetting, "max_feed_speed", QJsonValue::Double, 0, 1000},
    {kSetting, "manual_feed_speed", QJsonValue::Double, 0, 500},
    {kSetting, "manual_retract_speed", QJsonValue::Double, 0, 500},
    {kSetting, "wire_feedback_detection", QJsonValue::Double, 0, 2000},
    {kSetting, "laser_check_out_time", QJsonValue::Double, 0, 500},
};

bool fits(const NodeRange& range, const QJsonValue& value)
{
    if (range.type != QJsonValue::Double) {
        return value.type() == range.type;
    }
    const double number = value.toDouble(std::nan(""));
    // False for what is no number, too.
    return number >= range.lowest && number <= range.highest && std::floor(number) == number;
}

QString expectation(const NodeRange& range)
{
    switch (range.type) {
    case QJsonValue::Bool:
        return QStringLiteral("true or false");
    case QJsonValue::String:
        return QStringLiteral("a text");
    default:
        return QStringLiteral("a whole number from %1 to %2").arg(range.lowest).arg(range.highest);
    }
}

QString inWords(const QJsonValue& value)
{
    const QByteArray list = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(list.mid(1, list.size() - 2));
}

const NodeRange* findRange(const QString& node, const QString& member)
{
    for (const NodeRange& range : kRanges) {
        if (node == QLatin1String(range.node) && member == QLatin1String(range.member)) {
            return &range;
        }
    }
    return nullptr;
}

void requireValue(const QString& node, const QString& member, const QJsonValue& value)
{
    if (value.isObject()) {
        const QJsonObject object = value.toObject();
        for (auto below = object.constBegin(); below != object.constEnd(); ++below) {
            requireValue(node, member + QLatin1Char('.') + below.key(), below.value());
        }
    } else if (value.isArray()) {
        const QJsonArray array = value.toArray();
        for (const QJsonValue element : array) {
            requireValue(node, member + QLatin1String("[]"), element);
        }
    } else if (const NodeRange* range = findRange(node, member)) {
        if (!fits(*range, value)) {
            fail(QStringLiteral("%1.%2 is written as %3, expected %4")
                     .arg(node, member, inWords(value), expectation(*range)));
        }
    } else {
        fail(QStringLiteral("no range known for %1.%2").arg(node, member));
    }
}

} // namespace

void requireInRange(const QString& node, const QJsonObject& written)
{
    for (auto member = written.constBegin(); member != written.constEnd(); ++member) {
        requireValue(node, member.key(), member.value());
    }
    for (const NodeRange& range : kRanges) {
        const QString member = QString::fromLatin1(range.member, static_cast<int>(std::strcspn(range.member, ".[")));
        if (node == QLatin1String(range.node) && !written.contains(member)) {
            fail(QStringLiteral("%1.%2 is not written").arg(node, member));
        }
    }
}

void requireKept(const QString& node, const QJsonObject& loaded, const QJsonObject& written)
{
    for (const NodeRange& range : kRanges) {
        const QString member = QLatin1String(range.member);
        const QJsonValue value = loaded.value(member);
        if (node == QLatin1String(range.node) && fits(range, value) && written.value(member) != value) {
            fail(QStringLiteral("%1.%2 was %3 and is written as %4")
                     .arg(node, member, inWords(value), inWords(written.value(member))));
        }
    }
}

QJsonObject highestNode(const QString& node)
{
    QJsonObject highest;
    for (const NodeRange& range : kRanges) {
        if (node == QLatin1String(range.node)) {
            highest.insert(QLatin1String(range.member),
                           range.type == QJsonValue::Bool ? QJsonValue(true) : QJsonValue(range.highest));
        }
    }
    return highest;
}

} // namespace fuzz
