#include "simulator/pluginarea.h"

#include <QFileInfo>
#include <QLabel>

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
    connect(host, &SimHost::pluginWithdrawn, this, &PluginArea::withdraw);
}

void PluginArea::add(const LoadResult& result)
{
    if (result.fault != LoadFault::None) {
        addTab(reasonPage(result), QFileInfo(result.file).fileName());
        return;
    }
    for (int i = 0; i < result.names.size(); ++i) {
        m_labels.insert(result.names.at(i), result.labels.at(i));
        insertPage(count(), result.names.at(i));
    }
}

int PluginArea::tabOf(const QString& plugin) const
{
    for (int tab = 0; tab < count(); ++tab) {
        if (tabBar()->tabData(tab) == plugin) {
            return tab;
        }
    }
    return -1;
}

void PluginArea::insertPage(int tab, const QString& plugin)
{
    if (QWidget* page = m_host->page(plugin)) {
        tabBar()->setTabData(insertTab(tab, page, m_labels.value(plugin)), plugin);
    }
}

void PluginArea::replacePage(const QString& plugin)
{
    // A plug-in that is still being loaded is not known here yet; one that hands over another page later is.
    const int tab = tabOf(plugin);
    QWidget* former = widget(tab);
    if (!m_labels.contains(plugin) || (former != nullptr && former == m_host->page(plugin))) {
        return;
    }
    const bool current = former != nullptr && currentIndex() == tab;
    removeTab(tab);
    insertPage(tab, plugin);
    if (current) {
        setCurrentIndex(tab);
    }
    if (former != nullptr) {
        former->deleteLater();
    }
}

void PluginArea::withdraw(const QString& plugin)
{
    m_labels.remove(plugin);
    delete pageOf(plugin);
}

void PluginArea::showAgain()
{
    if (QWidget* page = currentWidget()) {
        page->hide();
        page->show();
    }
}

} // namespace sim
