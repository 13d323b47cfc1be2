#ifndef SIMULATOR_PLUGINAREA_H
#define SIMULATOR_PLUGINAREA_H

#include "simulator/pluginloader.h"

#include <QTabWidget>

namespace sim
{

/// The middle of the pendant: one tab per plug-in with its page, or with the reason why there is none.
class PluginArea : public QTabWidget
{
    Q_OBJECT

public:
    explicit PluginArea(SimHost* host, QWidget* parent = nullptr);

    /// Adds the pages of a plug-in file that loaded, or a page that says why it did not.
    void add(const LoadResult& result);

public slots:
    /// Hides and shows the current page, which makes it read again what it reads when it is shown.
    void showAgain();

private:
    void replacePage(const QString& plugin);

    SimHost* m_host;
    QStringList m_plugins; ///< plug-in name of each tab; empty for a reason
};

} // namespace sim

#endif
