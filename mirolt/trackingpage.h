#ifndef MIROLT_TRACKINGPAGE_H
#define MIROLT_TRACKINGPAGE_H

#include "mirolt/seamtracking.h"

#include <QWidget>

class QComboBox;
class QDoubleSpinBox;
class QGridLayout;
class QLabel;
class QPushButton;
class QSpinBox;

namespace mirolt
{

/// One page onto the tracking; there may be several. Made for 560 x 360 pixels and more; with less room, or with
/// larger text from a host's style sheet, it can be scrolled.
class TrackingPage : public QWidget
{
    Q_OBJECT

public:
    explicit TrackingPage(QSharedPointer<SeamTracking> tracking, QWidget* parent = nullptr);

private:
    QWidget* createContent();
    void addRow(QGridLayout* form, const QString& caption, QWidget* control, const char* objectName);
    QDoubleSpinBox* createOffset();
    void connectControls();
    /// The settings as the controls show them.
    TrackingSettings shownSettings() const;
    void showSettings();
    void showStatus();

    QSharedPointer<SeamTracking> m_tracking;
    QSpinBox* m_gain;
    QComboBox* m_joint;
    QDoubleSpinBox* m_offsetY;
    QDoubleSpinBox* m_offsetZ;
    QPushButton* m_sensor;
    QPushButton* m_track;
    QLabel* m_status;
};

} // namespace mirolt

#endif
