#ifndef SIMULATOR_PENDANTWINDOW_H
#define SIMULATOR_PENDANTWINDOW_H

#include "simulator/pluginloader.h"

#include <QVector>
#include <QWidget>

class QHBoxLayout;
class QSplitter;
class QStackedWidget;
class QTabWidget;

namespace sim
{

class ButtonStrip;
class MessageArea;
class MonitorOwner;
class NoticeBar;
class PluginArea;
class ProgramEditor;
class StationBar;

/// The pendant on the desk: simulated mark, station controls, the plug-ins' pages or the program editor with status
/// line and operator messages, the plug-ins' buttons beside them, the inspector at the right. Uses no style sheet of
/// its own: plug-ins style themselves, and a sheet up here would reach into their pages.
class PendantWindow : public QWidget
{
    Q_OBJECT

public:
    static constexpr int kWidth = 1510;
    static constexpr int kHeight = 800;

    PendantWindow(SimulatedController* controller, Journal* journal, SimHost* host, QWidget* parent = nullptr);
    ~PendantWindow() override;

    /// Starts in that room: as large as designed or as it allows. In a narrow window the inspector is hidden at
    /// first, so that the page has the whole width, and narrower when it is shown.
    void fitInto(const QSize& available);

    /// Shows the pendant without the inspector, its screen as wide as given (pixels) and its buttons beside it.
    void showAlone(int screenWidth);

    /// Shows the pages of a loaded plug-in, or why it did not load.
    void addPlugin(const LoadResult& result);

    /// Writes nodes, points and registers to a file whenever one of them was stored; a failure becomes a notice.
    void keepState(const QString& file);

    /// Something that the simulator itself has to say: shown until dismissed and kept in the journal.
    void notice(const QString& text);

    ProgramEditor* programEditor() const { return m_program; }

    /// The program editor instead of the plug-ins' pages, or these again.
    void showProgram(bool shown);

    /// A visible widget of what the pendant shows, a page, an editor or a button beside the screen, by its object name;
    /// null if there is none.
    QWidget* findShown(const QString& objectName) const;

    /// Does what the button "Show page again" does.
    void showPageAgain();

protected:
    /// Asks first when the program has changes that are not saved.
    void closeEvent(QCloseEvent* event) override;

private:
    void applyStyle(const LoadResult& result);
    QWidget* createPendant();
    void connectProgram();
    QTabWidget* createInspector();
    void fitIntoScreen();
    void shareWidth(int width);
    void addStatusItem(const QString& plugin, QWidget* item, int position);
    void removeStatusItems(const QString& plugin);
    QVector<QWidget*> statusItems() const;
    QWidget* mirroredStatusItem() const;
    QWidget* mirroredWidget(const QString& objectName) const;

    SimulatedController* m_controller;
    Journal* m_journal;
    StationBar* m_station;
    QSplitter* m_splitter;
    QStackedWidget* m_centre;
    ButtonStrip* m_buttons;
    PluginArea* m_plugins;
    MonitorOwner* m_monitor;
    ProgramEditor* m_program;
    MessageArea* m_messages;
    NoticeBar* m_notices;
    QHBoxLayout* m_statusItems;
};

} // namespace sim

#endif
