#ifndef CHECKS_FUZZ_NODERANGES_H
#define CHECKS_FUZZ_NODERANGES_H

#include <QJsonObject>
#include <QJsonValue>
#include <QString>

namespace fuzz
{

/// What a page may write into a member of a configuration node, as the controller understands it. Kept apart from
/// the forms on purpose: a range that a form loses is to be noticed.
struct NodeRange {
    const char* node;
    const char* member;    ///< below objects as "name.name", elements of an array as "name[]"
    QJsonValue::Type type; ///< numbers are whole
    int lowest = 0;        ///< of a number
    int highest = 0;
};

/// Ends the process unless every value in the node is a known one of its type and in its range, and all known
/// members are there.
void requireInRange(const QString& node, const QJsonObject& written);

/// Ends the process if a value that was in its range on the way in is another one on the way out.
void requireKept(const QString& node, const QJsonObject& loaded, const QJsonObject& written);

/// A node with every member at the upper end of its range.
QJsonObject highestNode(const QString& node);

} // namespace fuzz

#endif
