#ifndef SIMULATOR_MONITOROWNER_H
#define SIMULATOR_MONITOROWNER_H

#include "simulator/pluginloader.h"

#include <QDialog>
#include <QPointer>
#include <QTimer>
#include <QVariant>

namespace sim
{

/// Opens the welding package's monitor dialog and feeds it, as a pendant's own screen would: starts the
/// controller's stream of live values, subscribes to it and hands every set of values on for as long as both last.
/// The dialog ends stream and subscription itself when it is closed.
class MonitorOwner : public QObject
{
    Q_OBJECT

public:
    MonitorOwner(SimulatedController* controller, SimHost* host, QWidget* window);
    /// Closes an open dialog.
    ~MonitorOwner() override;

    /// Looks for a monitor dialog in a plug-in that was loaded; when it has one, a pendant button opens it.
    void take(const LoadResult& result);

    /// Opens the dialog, or brings the open one to the front. Does nothing while it is on its way in or out: the
    /// commands that start and stop the stream may spin the event loop.
    void open();

    QDialog* dialog() const { return m_dialog; }

private:
    void deliver();

    using Create = QDialog* (*)(QWidget* parent);
    using Show = void (*)(QDialog* monitor, const QVariant& state);

    SimulatedController* m_controller;
    QPointer<SimHost> m_host; ///< may go before the window does
    QWidget* m_window;
    QString m_plugin;
    Create m_create = nullptr;
    Show m_show = nullptr;
    QPointer<QDialog> m_dialog;
    QTimer m_timer;
    bool m_opening = false; ///< the command that starts the stream may spin the event loop
};

} // namespace sim

#endif
