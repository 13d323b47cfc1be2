#ifndef SIMULATOR_POINTSMODEL_H
#define SIMULATOR_POINTSMODEL_H

#include "simulator/simulatedcontroller.h"

#include <QAbstractTableModel>

namespace sim
{

/// The controller's points as a table: name, the numbers of the position, tool, work object.
class PointsModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    static constexpr int kDecimals = 3; ///< of the numbers that are shown

    explicit PointsModel(const SimulatedController* controller, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    void update(int place);

    const SimulatedController* m_controller;
    int m_rows; ///< points that the views know of
};

} // namespace sim

#endif
