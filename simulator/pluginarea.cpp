#include "simulator/pluginarea.h"

#include <QFileInfo>
#include <QLabel>
#include <QTabBar>

namespace sim
{

namespace
{

/// A page in place of the one that a plug-in owes.
QLabel* reasonPage(const LoadResult& result)
{
    auto* page = new QLabel(
        PluginArea::tr("This plug-in did not load.\n\nFile:  %1\n\nReason:  %2").arg(result.file, result.reason));
    page->setObjectName(QStringLiteral("loadFailure"));
    page->setTextFormat(Qt::PlainText);
    page->setAlignment(Qt::AlignCenter);
    page->setWordWrap(true);
    page->setMargin(24);
    page->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return page;
}

} // namespace

PluginArea::PluginArea(SimHost* host, QWidget* parent) : QTabWidget(parent), m_host(host)
{
    setObjectName(QStringLiteral("pluginArea"));
    setDocumentMode(true);
    tabBar()->setAutoHide(true);
    connect(host, &SimHost::pageGiven, this, &PluginArea::replacePage);
}

void PluginArea::add(const LoadResult& result)
{
    if (result.fault != LoadFault::None) {
        m_plugins.append(QString());
        addTab(reasonPage(result), QFileInfo(result.file).fileName());
        return;
    }
    for (int i = 0; i < result.names.size(); ++i) {
        m_plugins.append(result.names.at(i));
        addTab(m_host->page(result.names.at(i)), result.labels.at(i));
    }
}

void PluginArea::replacePage(const QString& plugin)
{
    // A plug-in that is still being loaded has no tab yet; one that hands over another page later has.
    const int tab = m_plugins.indexOf(plugin);
    if (tab < 0 || widget(tab) == m_host->page(plugin)) {
        return;
    }
    QWidget* former = widget(tab);
    const QString label = tabText(tab);
    const bool current = currentIndex() == tab;
    removeTab(tab);
    insertTab(tab, m_host->page(plugin), label);
    if (current) {
        setCurrentIndex(tab);
    }
    former->deleteLater();
}

void PluginArea::showAgain()
{
    if (QWidget* page = currentWidget()) {
        page->hide();
        page->show();
    }
}

} // namespace sim
