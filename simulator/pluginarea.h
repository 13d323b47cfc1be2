#ifndef SIMULATOR_PLUGINAREA_H
#define SIMULATOR_PLUGINAREA_H

#include "simulator/pluginloader.h"

#include <QHash>
#include <QTabBar>
#include <QTabWidget>

namespace sim
{

/// The middle of the pendant: one tab per plug-in with its page, or with the reason why there is none.
class PluginArea : public QTabWidget
{
    Q_OBJECT

public:
    explicit PluginArea(SimHost* host, QWidget* parent = nullptr);

    /// The style sheet of the plug-in's page from now on, set around it: what the page sets on itself and its widgets
    /// wins. To be said before add().
    void setSheet(const QString& plugin, const QString& sheet) { m_sheets.insert(plugin, sheet); }

    /// Adds the pages of a plug-in file that loaded, or a page that says why it did not.
    void add(const LoadResult& result);

    /// What holds the plug-in's page; null when it has no tab.
    QWidget* pageOf(const QString& plugin) const { return widget(tabOf(plugin)); }
    /// The plug-in whose page is in front; empty for a page that says why there is none.
    QString currentPlugin() const { return tabBar()->tabData(currentIndex()).toString(); }

public slots:
    /// Hides and shows the current page, which makes it read again what it reads when it is shown.
    void showAgain();

protected:
    /// Takes the tab of a page away that has gone.
    bool eventFilter(QObject* holder, QEvent* event) override;

private:
    int tabOf(const QString& plugin) const;
    void insertPage(int tab, const QString& plugin);
    void replacePage(const QString& plugin);
    void withdraw(const QString& plugin);

    SimHost* m_host;
    /// By plug-in, also of those whose page is gone. A tab knows its plug-in itself, as its data: tabs go away
    /// with their pages, and plug-ins may destroy these.
    QHash<QString, QString> m_labels;
    QHash<QString, QString> m_sheets;
};

} // namespace sim

#endif
