#include "plugin/monitor.h"

#include "page/buttonmonitorpage/buttonmonitorpage.h"

QDialog* corvaneCreateMonitor(QWidget* parent)
{
    auto* monitor = new ButtonMonitorPage(parent);
    monitor->initStyle();
    return monitor;
}

void corvaneShowMonitorState(QDialog* monitor, const QVariant& state)
{
    if (auto* page = qobject_cast<ButtonMonitorPage*>(monitor)) {
        page->onWelderStateChanged(state);
    }
}
