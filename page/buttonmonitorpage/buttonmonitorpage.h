#ifndef PAGE_BUTTONMONITORPAGE_BUTTONMONITORPAGE_H
#define PAGE_BUTTONMONITORPAGE_BUTTONMONITORPAGE_H

#include <QDialog>
#include <QVariant>

#include <memory>

namespace Ui
{
class ButtonMonitorPage;
}

/// A small dialog with five live values of the welding process, for looking only. Its owner opens it, has the
/// controller start the stream of values, and hands every set of them to onWelderStateChanged. The dialog ends the
/// stream when it is closed, in whichever way, or destroyed without having been closed since it was shown.
///
/// Ranges: 0 to 100 for the duty cycle, the spin boxes' own 0 to 99.99 for the others; an owner that expects larger
/// values sets the ranges of the five QDoubleSpinBoxes.
class ButtonMonitorPage : public QDialog
{
    Q_OBJECT

public:
    explicit ButtonMonitorPage(QWidget* parent);
    ~ButtonMonitorPage() override;

    /// Shows a set of values: a QVariantMap with "get_laser_power", "get_laser_frequency", "get_laser_dutycycle" (%),
    /// "get_laser_wirespeed" and "get_laser_weldspeed" (mm/s). What is missing or no number shows as 0, what lies
    /// outside a range at its limit. Anything but a map is ignored.
    void onWelderStateChanged(const QVariant& state);

    void initConnect();
    /// Fonts for the pendant's screen. To be called by the owner, before the dialog is shown.
    void initStyle();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void stopMonitor();

    std::unique_ptr<Ui::ButtonMonitorPage> ui;
    /// What the dialog knows of the stream: it is its owner who starts it.
    enum class Stream {
        Unknown, ///< never shown yet
        Running, ///< shown since the last stop
        Stopped
    };
    Stream m_stream = Stream::Unknown;
};

#endif
