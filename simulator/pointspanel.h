#ifndef SIMULATOR_POINTSPANEL_H
#define SIMULATOR_POINTSPANEL_H

#include "simulator/simulatedcontroller.h"

#include <QVector>
#include <QWidget>

class QDoubleSpinBox;
class QGroupBox;
class QTableView;

namespace sim
{

/// Where the robot is, to be moved by hand, and the points that the controller has.
class PointsPanel : public QWidget
{
    Q_OBJECT

public:
    explicit PointsPanel(SimulatedController* controller, QWidget* parent = nullptr);

private:
    QGroupBox* createPosition();
    QDoubleSpinBox* createBox(const Coordinate& coordinate);
    void setUpTable();
    void showPosition();
    void showPoint(int row);

    SimulatedController* m_controller;
    QVector<QDoubleSpinBox*> m_boxes; ///< in the order of kCoordinates
    QTableView* m_table;
};

} // namespace sim

#endif
