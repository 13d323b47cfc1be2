#ifndef SIMULATOR_STATIONBAR_H
#define SIMULATOR_STATIONBAR_H

#include "simulator/simulatedcontroller.h"

#include <QVector>
#include <QWidget>

class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;

namespace sim
{

/// What happens around the pendant: who is logged in, whether the robot is powered, whether the line to the
/// controller is up. Nothing of it is pushed to a page: pages ask when it counts.
class StationBar : public QWidget
{
    Q_OBJECT

public:
    explicit StationBar(SimulatedController* controller, QWidget* parent = nullptr);

    /// Puts the button "Program" into this state, and with it what the pendant shows.
    void setProgramShown(bool shown);
    /// Puts the button "Inspector" into this state, and with it the inspector.
    void setInspectorShown(bool shown);

signals:
    /// The program editor instead of the plug-ins' pages, or these again.
    void showProgram(bool shown);
    void showPageAgain();
    void showInspector(bool shown);

private:
    /// A null stands for the gap between two groups.
    void layOut(const QVector<QWidget*>& left, const QVector<QWidget*>& right);
    void showLevel(int level);
    void showPower(bool powered);
    void showConnection(bool connected);

    QComboBox* m_level;
    QCheckBox* m_power;
    QLabel* m_connection;
    QPushButton* m_connect;
    QPushButton* m_program;
    QPushButton* m_inspector;
};

} // namespace sim

#endif
