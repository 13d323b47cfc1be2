#ifndef SIMULATOR_CONTROLLERPANEL_H
#define SIMULATOR_CONTROLLERPANEL_H

#include "simulator/simulatedcontroller.h"

#include <QWidget>

#include <functional>

class QCheckBox;
class QGridLayout;
class QGroupBox;
class QLabel;
class QTimer;

namespace sim
{

/// What the controller really holds beside what the pendant shows of it, the pendant's font zoom, and how commands are
/// to be answered.
class ControllerPanel : public QWidget
{
    Q_OBJECT

public:
    /// findShown: a visible widget of the pendant by its object name; null if there is none.
    /// statusItem: the widget in the status line, or null.
    ControllerPanel(SimulatedController* controller, const std::function<QWidget*(const QString&)>& findShown,
                    const std::function<QWidget*()>& statusItem, QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    QLabel* createLabel(const QString& objectName);
    QGroupBox* createTruth(const std::function<QWidget*(const QString&)>& findShown,
                           const std::function<QWidget*()>& statusItem);
    QCheckBox* createValueBox(const char* value);
    QGroupBox* createPendant();
    QGroupBox* createAnswers();
    void addAnswerRow(QGridLayout* grid, const QString& command);
    void showTruth();
    void showRunning();

    SimulatedController* m_controller;
    QCheckBox* m_virtualWelding = nullptr;
    QCheckBox* m_redLight = nullptr;
    QLabel* m_weldEnable = nullptr;
    QLabel* m_wire = nullptr;
    QLabel* m_gas = nullptr;
    QLabel* m_monitor = nullptr;
    QTimer* m_refresh;
};

} // namespace sim

#endif
