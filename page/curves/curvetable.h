#ifndef PAGE_CURVES_CURVETABLE_H
#define PAGE_CURVES_CURVETABLE_H

#include "page/curves/curvespecs.h"

#include <QList>
#include <QPointF>
#include <QString>
#include <QVector>

#include <optional>

class QTableWidget;

/// The table of a curve's nodes: number of the node, spin box of its port value, spin box of its physical value. A
/// table that lacks these columns shows no nodes, with a warning in the log. None may be null. No function says
/// anything to the operator or asks the host.
namespace curvetable
{

enum Column { NodeNumber, PortValue, PhysicalValue };

/// Appends a node. Values beyond their ranges become the nearest that is within; the physical value's fraction is cut
/// off.
void addRow(QTableWidget* table, const ValueRange& values, int nodeNumber, double portValue, double physicalValue);

/// Shows count nodes: the given ones, then zeros; those beyond count are ignored. Cells that are there stay and get new
/// values.
void populate(QTableWidget* table, const ValueRange& values, int count, const QList<QPointF>& nodes);

/// What is in the rows, also what was typed a moment ago. A cell without a spin box counts by its text, as a number.
QList<QPointF> nodes(QTableWidget* table);

/// The same, with nothing for a row that can't be edited as a spin box is missing.
QVector<std::optional<QPointF>> enteredNodes(QTableWidget* table);

void setCellWidgetsEnabled(QTableWidget* table, bool enabled);

/// The title of the column of port values: the port.
void setPortHeader(QTableWidget* table, const QString& text);
QString portHeader(const QTableWidget* table);

} // namespace curvetable

#endif
