#ifndef PLUGIN_MONITOR_H
#define PLUGIN_MONITOR_H

#include <QtGlobal>

class QDialog;
class QVariant;
class QWidget;

/// The monitor dialog for an owner outside the library, which finds these two by name (dlsym). The owner sets the
/// ranges of the dialog's spin boxes, sends "start_laserweld_monitor" with true, shows the dialog and feeds it; the
/// dialog ends the stream itself when it is closed, or destroyed without.
extern "C" {

/// A new monitor dialog, styled and not yet shown. It belongs to its parent, or to the caller when that is null.
Q_DECL_EXPORT QDialog* corvaneCreateMonitor(QWidget* parent);

/// Hands the monitor dialog a set of values (ButtonMonitorPage::onWelderStateChanged). Another dialog, or null, is
/// ignored.
Q_DECL_EXPORT void corvaneShowMonitorState(QDialog* monitor, const QVariant& state);
}

#endif
