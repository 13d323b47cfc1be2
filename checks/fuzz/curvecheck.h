#ifndef CHECKS_FUZZ_CURVECHECK_H
#define CHECKS_FUZZ_CURVECHECK_H

#include <QJsonObject>

namespace fuzz
{

/// Of the save commands of the curves, by name, those that can leave: the others have fewer than two nodes.
QJsonObject withEnoughNodes(QJsonObject commands);

/// Ends the process unless written is what the nodes of the curves' node make of it: as many as their count says, in
/// their order, each value within the range that the schema has for it. A curve without nodes in the node may be any.
void requireCurves(const QJsonObject& config, const QJsonObject& written);

/// Whether a node says all by itself: a curve without nodes leaves those that are shown.
bool hasAllCurves(const QJsonObject& config);

} // namespace fuzz

#endif
