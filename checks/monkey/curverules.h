#ifndef CHECKS_MONKEY_CURVERULES_H
#define CHECKS_MONKEY_CURVERULES_H

#include <QJsonObject>
#include <QString>

/// The rule that a curve's two members, number of nodes and nodes, break between them, in words, or nothing.
QString brokenCurveRule(const QJsonObject& curve);

/// Whether a weld I/O mapping has the output in use that a curve is of.
bool isAssigned(const QJsonObject& curve, const QJsonValue& mapping);

#endif
