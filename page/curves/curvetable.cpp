#include "page/curves/curvetable.h"

#include "common/logline.h"
#include "common/truncate.h"

#include <QColor>
#include <QDoubleSpinBox>
#include <QSpinBox>
#include <QTableWidget>
#include <QWheelEvent>

#include <cmath>

namespace
{

using namespace curvetable;

constexpr double kPortStep = 0.01;
constexpr QRgb kNotEditable = 0xf5f5f5; ///< the colour of cells that are disabled, too

/// A spin box in a table that scrolls: the wheel moves the table, and never a value in passing.
template <typename Box>
class CellBox : public Box
{
protected:
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

template <typename Box>
Box* newCell(QTableWidget* table, int row, Column column)
{
    auto* box = new CellBox<Box>;
    box->setButtonSymbols(QAbstractSpinBox::NoButtons);
    box->setAlignment(Qt::AlignCenter);
    table->setCellWidget(row, column, box);
    return box;
}

bool hasColumns(const QTableWidget* table)
{
    const bool has = table->columnCount() > PhysicalValue;
    if (!has) {
        logLine(LogLevel::Warning) << "a table of nodes has too few columns:" << table->columnCount();
    }
    return has;
}

QDoubleSpinBox* portBox(const QTableWidget* table, int row)
{
    return qobject_cast<QDoubleSpinBox*>(table->cellWidget(row, PortValue));
}

QSpinBox* valueBox(const QTableWidget* table, int row)
{
    return qobject_cast<QSpinBox*>(table->cellWidget(row, PhysicalValue));
}

double cellNumber(const QTableWidget* table, int row, Column column)
{
    const QTableWidgetItem* item = table->item(row, column);
    return item != nullptr ? item->text().toDouble() : 0;
}

void showNode(QTableWidget* table, const ValueRange& values, int row, int nodeNumber, const QPointF& node)
{
    if (table->item(row, NodeNumber) == nullptr) {
        auto* number = new QTableWidgetItem;
        number->setTextAlignment(Qt::AlignCenter);
        number->setFlags(Qt::ItemIsEnabled);
        number->setBackground(QColor(kNotEditable));
        table->setItem(row, NodeNumber, number);
    }
    table->item(row, NodeNumber)->setText(QString::number(nodeNumber));
    if (portBox(table, row) == nullptr) {
        auto* box = newCell<QDoubleSpinBox>(table, row, PortValue);
        box->setRange(0, kGreatestPortValue);
        box->setDecimals(kPortDecimals);
        box->setSingleStep(kPortStep);
    }
    if (valueBox(table, row) == nullptr) {
        newCell<QSpinBox>(table, row, PhysicalValue)->setRange(values.least, values.greatest);
    }
    portBox(table, row)->setValue(std::isnan(node.x()) ? 0 : node.x());
    valueBox(table, row)->setValue(truncatedToInt(node.y()));
}

} // namespace

namespace curvetable
{

void addRow(QTableWidget* table, const ValueRange& values, int nodeNumber, double portValue, double physicalValue)
{
    if (!hasColumns(table)) {
        return;
    }
    const int row = table->rowCount();
    table->insertRow(row);
    showNode(table, values, row, nodeNumber, {portValue, physicalValue});
}

void populate(QTableWidget* table, const ValueRange& values, int count, const QList<QPointF>& nodes)
{
    if (!hasColumns(table)) {
        return;
    }
    while (table->rowCount() > qMax(count, 0)) {
        table->removeRow(table->rowCount() - 1);
    }
    for (int row = 0; row < count; ++row) {
        if (row == table->rowCount()) {
            table->insertRow(row);
        }
        showNode(table, values, row, row + 1, row < nodes.size() ? nodes.at(row) : QPointF());
    }
    setCellWidgetsEnabled(table, true);
}

QList<QPointF> nodes(QTableWidget* table)
{
    QList<QPointF> nodes;
    const QVector<std::optional<QPointF>> entered = enteredNodes(table);
    for (int row = 0; row < entered.size(); ++row) {
        nodes.append(entered.at(row).value_or(
            QPointF(cellNumber(table, row, PortValue), cellNumber(table, row, PhysicalValue))));
    }
    return nodes;
}

QVector<std::optional<QPointF>> enteredNodes(QTableWidget* table)
{
    QVector<std::optional<QPointF>> nodes(table->rowCount());
    for (int row = 0; row < table->rowCount(); ++row) {
        QDoubleSpinBox* port = portBox(table, row);
        QSpinBox* value = valueBox(table, row);
        if (port != nullptr && value != nullptr) {
            port->interpretText();
            value->interpretText();
            nodes[row] = QPointF(port->value(), value->value());
        }
    }
    return nodes;
}

void setCellWidgetsEnabled(QTableWidget* table, bool enabled)
{
    for (int row = 0; row < table->rowCount(); ++row) {
        for (const Column column : {PortValue, PhysicalValue}) {
            if (QWidget* cell = table->cellWidget(row, column)) {
                cell->setEnabled(enabled);
            }
        }
    }
}

void setPortHeader(QTableWidget* table, const QString& text)
{
    if (table->horizontalHeaderItem(PortValue) == nullptr) {
        table->setHorizontalHeaderItem(PortValue, new QTableWidgetItem);
    }
    if (QTableWidgetItem* header = table->horizontalHeaderItem(PortValue)) {
        header->setText(text);
    }
}

QString portHeader(const QTableWidget* table)
{
    const QTableWidgetItem* header = table->horizontalHeaderItem(PortValue);
    return header != nullptr ? header->text() : QString();
}

} // namespace curvetable
