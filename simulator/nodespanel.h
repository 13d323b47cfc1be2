#ifndef SIMULATOR_NODESPANEL_H
#define SIMULATOR_NODESPANEL_H

#include "simulator/simulatedcontroller.h"

#include <QWidget>

class QComboBox;
class QPlainTextEdit;

namespace sim
{

/// Everything the controller holds, for reading: each node, the single values and each catalogue list.
class NodesPanel : public QWidget
{
    Q_OBJECT

public:
    explicit NodesPanel(SimulatedController* controller, QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void refresh();
    QJsonValue content(const QString& name) const;

    SimulatedController* m_controller;
    QComboBox* m_choice;
    QPlainTextEdit* m_text;
};

} // namespace sim

#endif
