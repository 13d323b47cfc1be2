#include "simulator/pluginarea.h"

#include <QChildEvent>
#include <QFileInfo>
#include <QLabel>
#include <QVBoxLayout>

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
        auto* holder = new QWidget;
        holder->setStyleSheet(m_sheets.value(plugin));
        auto* layout = new QVBoxLayout(holder);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(page);
        holder->installEventFilter(this);
        tabBar()->setTabData(insertTab(tab, holder, m_labels.value(plugin)), plugin);
    }
}

bool PluginArea::eventFilter(QObject* holder, QEvent* event)
{
    if (event->type() == QEvent::ChildRemoved && static_cast<QChildEvent*>(event)->child()->isWidgetType()) {
        removeTab(indexOf(static_cast<QWidget*>(holder)));
        holder->deleteLater();
    }
    return QTabWidget::eventFilter(holder, event);
}

void PluginArea::replacePage(const QString& plugin)
{
    // A plug-in that is still being loaded is not known here yet; one that hands over another page later is.
    const int tab = tabOf(plugin);
    QWidget* former = widget(tab);
    if (!m_labels.contains(plugin) || (former != nullptr && former->isAncestorOf(m_host->page(plugin)))) {
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
    if (QWidget* page = m_host->page(currentPlugin())) {
        page->hide();
        page->show();
    }
}

} // namespace sim
