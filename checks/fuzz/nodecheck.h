#ifndef CHECKS_FUZZ_NODECHECK_H
#define CHECKS_FUZZ_NODECHECK_H

#include <QJsonObject>
#include <QString>

namespace fuzz
{

/// Ends the process unless every command, given by its name with its argument, follows its schema.
void requireInRange(const QJsonObject& commands);

/// Ends the process if a value that fitted the node's schema on the way in is another one on the way out.
void requireKept(const QString& node, const QJsonObject& loaded, const QJsonObject& written);

/// A node with every member, every list as long as it may be, every number at its upper end.
QJsonObject highestNode(const QString& node);

} // namespace fuzz

#endif
