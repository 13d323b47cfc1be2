#ifndef SIMULATOR_IOPANEL_H
#define SIMULATOR_IOPANEL_H

#include "simulator/simulatedcontroller.h"

#include <QWidget>

class QTableView;

namespace sim
{

class IoModel;

/// The controller's registers and I/O points and who uses them; a register can be taken away, or be given another
/// access, while the pendant is at work.
class IoPanel : public QWidget
{
    Q_OBJECT

public:
    explicit IoPanel(SimulatedController* controller, QWidget* parent = nullptr);

private:
    QWidget* createFilter();
    void setUpTable();
    void setSizes();
    void offerAccess(const QModelIndex& cell);

    IoModel* m_model;
    QTableView* m_table;
};

} // namespace sim

#endif
