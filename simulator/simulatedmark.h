#ifndef SIMULATOR_SIMULATEDMARK_H
#define SIMULATOR_SIMULATEDMARK_H

#include <QWidget>

namespace sim
{

/// The hazard-striped band that says, always and over the whole width, that nothing here is real.
class SimulatedMark : public QWidget
{
    Q_OBJECT

public:
    explicit SimulatedMark(QWidget* parent = nullptr);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace sim

#endif
