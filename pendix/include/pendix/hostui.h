#ifndef PENDIX_HOSTUI_H
#define PENDIX_HOSTUI_H

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

class QWidget;

namespace pendix
{

/// Severity of a message in the operator's message area.
enum enThrowLogLevel {
    information = 0, ///< completed actions
    warning = 1,     ///< refusals that the operator can correct
    error = 2        ///< failed actions
};

/// One plug-in button beside the pendant's hardware keys. The host copies the record.
struct PhysicalButton {
    QString text;                      ///< translated label under the button
    QString pressedImage;              ///< resource path of the picture while pressed
    QString releasedImage;             ///< resource path of the picture while released
    std::function<void(bool)> handler; ///< called with true when the button goes down, false when it comes up
};

} // namespace pendix

/// Shows an already translated text in the operator's message area.
void ThrowLog(const QString& source, pendix::enThrowLogLevel level, const QString& text);

/// Installs the plug-in's main page; the host owns the widget from then on.
void CreateCenterWidget(const QString& plugin, QWidget* widget);

/// Installs the plug-in's status bar item; the host owns the widget from then on.
void CreateStatusBar(const QString& plugin, QWidget* widget, int position);

/// Creates the plug-in's pendant buttons, laid out in two lists.
void CreatePhyButtonList(const QString& plugin, const QString& name, const QList<pendix::PhysicalButton>& first,
                         const QList<pendix::PhysicalButton>& second, QStringList selector);

/// Switches the plug-in's pendant buttons on or off.
void ChangePhyButtonStatus(const QString& plugin, const QString& name, bool on);

/// Sets the host's modal-window state for the plug-in.
void ChangeModelWindowStatus(const QString& plugin, bool modal);

/// Sets out to a new widget of the named plug-in, or to null when it offers none (yet).
/// The result is a code of the host's own.
int GetPluginNoUniqueWidget(const QString& plugin, QWidget*& out);

#endif
