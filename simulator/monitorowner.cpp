#include "simulator/monitorowner.h"

#include <QCoreApplication>
#include <QDoubleSpinBox>

#include <dlfcn.h>

namespace sim
{

namespace
{

constexpr int kIntervalMs = 200;

/// Wide enough for every laser and feeder there is; a percentage keeps its own 100.
constexpr double kLargestValue = 99999;

const QString kData = QStringLiteral("weld_monitor_data");
const QString kStart = QStringLiteral("start_laserweld_monitor");
const QString kOwnButtons = QStringLiteral("pendant");

} // namespace

MonitorOwner::MonitorOwner(SimulatedController* controller, SimHost* host, QWidget* window)
    : QObject(window), m_controller(controller), m_host(host), m_window(window)
{
    m_timer.setInterval(kIntervalMs);
    connect(&m_timer, &QTimer::timeout, this, &MonitorOwner::deliver);
    connect(host, &SimHost::pluginWithdrawn, this, [this](const QString& plugin) {
        if (plugin == m_plugin) {
            delete m_dialog;
            m_create = nullptr;
            m_host->buttonLists()->withdraw(kOwnButtons);
        }
    });
}

MonitorOwner::~MonitorOwner()
{
    // Waits for the answer to the stop, while all that may happen meanwhile is still there.
    m_timer.stop();
    delete m_dialog;
    if (m_host != nullptr) {
        m_host->buttonLists()->withdraw(kOwnButtons);
    }
}

void MonitorOwner::take(const LoadResult& result)
{
    if (result.fault != LoadFault::None) {
        return;
    }
    const auto create = reinterpret_cast<Create>(dlsym(result.library, "corvaneCreateMonitor"));
    const auto show = reinterpret_cast<Show>(dlsym(result.library, "corvaneShowMonitorState"));
    if (create == nullptr || show == nullptr) {
        return;
    }
    m_plugin = result.names.first();
    m_create = create;
    m_show = show;
    // The text and the pictures are the package's, in its language; the button is the pendant's.
    const QString pictures = QStringLiteral(":/png/phybutton/monitor%1.png");
    const pendix::PhysicalButton button{QCoreApplication::translate("ButtonMonitorPage", "Monitor"),
                                        pictures.arg(QLatin1String("Pressed")),
                                        pictures.arg(QLatin1String("Unpressed")), [this](bool pressed) {
                                            if (pressed) {
                                                open();
                                            }
                                        }};
    m_host->buttonLists()->give({kOwnButtons, kOwnButtons, {button}, {}, true});
}

void MonitorOwner::open()
{
    // A dialog that is hidden has been closed and waits for the answer to its stop: it may not come back.
    if (m_create == nullptr || m_opening || (m_dialog != nullptr && m_dialog->isHidden())) {
        return;
    }
    if (m_dialog == nullptr) {
        m_opening = true;
        m_dialog = m_create(m_window);
        for (QDoubleSpinBox* value : m_dialog->findChildren<QDoubleSpinBox*>()) {
            if (value->suffix().isEmpty()) {
                value->setMaximum(kLargestValue);
            }
        }
        connect(m_dialog, &QDialog::finished, m_dialog, &QObject::deleteLater);
        m_host->changeModelWindowStatus(m_plugin, true);
        m_host->subscribe(m_plugin, kData);
        m_host->commandCustomData(this, m_plugin, {{kStart, true}});
        m_opening = false;
        m_timer.start();
    }
    if (m_dialog != nullptr) {
        deliver();
        m_dialog->show();
        m_dialog->raise();
    }
}

void MonitorOwner::deliver()
{
    if (m_dialog == nullptr) {
        m_timer.stop();
        return;
    }
    const QVariantMap values = m_controller->monitorValues();
    // Without a stream or a line nothing comes: the dialog keeps what it shows.
    if (!values.isEmpty() && m_host->isSubscribed(m_plugin, kData)) {
        m_show(m_dialog, values);
    }
}

} // namespace sim
