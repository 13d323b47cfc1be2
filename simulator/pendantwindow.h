#ifndef SIMULATOR_PENDANTWINDOW_H
#define SIMULATOR_PENDANTWINDOW_H

#include "simulator/pluginloader.h"

#include <QPointer>
#include <QWidget>

class QHBoxLayout;
class QTabWidget;

namespace sim
{

class MessageArea;
class NoticeBar;
class PluginArea;

/// The pendant on the desk: simulated mark, station controls, the plug-ins' pages with status line and operator
/// messages, the inspector at the right. Uses no style sheet of its own: plug-ins style themselves, and a
/// sheet up here would reach into their pages.
class PendantWindow : public QWidget
{
    Q_OBJECT

public:
    static constexpr int kWidth = 1280;
    static constexpr int kHeight = 800;

    PendantWindow(SimulatedController* controller, Journal* journal, SimHost* host, QWidget* parent = nullptr);

    /// Shows the pages of a loaded plug-in, or why it did not load.
    void addPlugin(const LoadResult& result);

    /// Writes the nodes to a file after every command that stored them; a failure becomes a notice.
    void keepState(const QString& file);

    /// Something that the simulator itself has to say: shown until dismissed and kept in the journal.
    void notice(const QString& text);

    /// A visible widget of a plug-in's page by its object name; null if there is none.
    QWidget* findShown(const QString& objectName) const;

    /// Does what the button "Show page again" does.
    void showPageAgain();

private:
    QWidget* createPendant();
    QTabWidget* createInspector();
    void addStatusItem(QWidget* item, int position);

    SimulatedController* m_controller;
    Journal* m_journal;
    PluginArea* m_plugins;
    MessageArea* m_messages;
    NoticeBar* m_notices;
    QHBoxLayout* m_statusItems;
    QPointer<QWidget> m_firstStatusItem;
};

} // namespace sim

#endif
