#include "page/lasertrackingpage.h"
#include "ui_lasertrackingpage.h"

#include "common/logline.h"
#include "common/names.h"
#include "widgets/stackedwidgetfit.h"
#include "widgets/uiscale.h"

#include "pendix/hostui.h"

namespace
{

constexpr auto& kLaserTrackPluginName = names::kTrackingPlugin;
constexpr int kRetryMs = 200;
constexpr int kMostRetries = 25;

} // namespace

LaserTrackingPage::LaserTrackingPage(QWidget* parent) : QWidget(parent), ui(std::make_unique<Ui::LaserTrackingPage>())
{
    ui->setupUi(this);
    UiScale::applyExpandingPage(this);
    m_retry.setSingleShot(true);
    m_retry.setInterval(kRetryMs);
    connect(&m_retry, &QTimer::timeout, this, &LaserTrackingPage::embedLaserTrackPage);
}

LaserTrackingPage::~LaserTrackingPage() = default;

void LaserTrackingPage::initStyle()
{
    embedLaserTrackPage();
}

void LaserTrackingPage::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    embedLaserTrackPage();
}

void LaserTrackingPage::embedLaserTrackPage()
{
    if (!trackWidget && !obtainWidget()) {
        return;
    }
    const Business::Watch watch = m_business.watch();
    place(trackWidget);
    if (!watch.ownerLives()) {
        return; // the neighbour's page asks the host too when it is shown
    }
    refreshStack();
    logLine(LogLevel::Information) << kLaserTrackPluginName << " embedded into LaserTrackingPage";
}

bool LaserTrackingPage::obtainWidget()
{
    const auto turn = m_business.begin();
    if (!turn) {
        return false;
    }
    QWidget* widget = nullptr;
    const int code = GetPluginNoUniqueWidget(QString::fromLatin1(kLaserTrackPluginName), widget);
    std::unique_ptr<QWidget> unclaimed(widget);
    if (!turn->ownerLives()) {
        return false;
    }
    if (widget == nullptr) {
        retryLater(code);
        return false;
    }
    m_retry.stop();
    trackWidget = unclaimed.release();
    retryCount = 0;
    return true;
}

void LaserTrackingPage::retryLater(int code)
{
    if (retryCount >= kMostRetries) {
        m_retry.stop();
        logLine(LogLevel::Error) << kLaserTrackPluginName
                                 << QString::fromUtf8(" embed failed; 请确认 Mirolt.dll 已加载");
        return;
    }
    ++retryCount;
    logLine(LogLevel::Warning) << kLaserTrackPluginName << " embed pending, ret=" << code << " retry=" << retryCount;
    m_retry.start();
}

void LaserTrackingPage::place(QWidget* widget)
{
    if (widget->parentWidget() != this) {
        QWidget* former = widget->parentWidget();
        if (former != nullptr && former->layout() != nullptr) {
            former->layout()->removeWidget(widget);
        }
        widget->setParent(this);
        ui->verticalLayout->addWidget(widget);
    }
    widget->setWindowFlags(Qt::Widget);
    UiScale::applyExpandingPage(widget);
    widget->show();
}

void LaserTrackingPage::refreshStack()
{
    for (QWidget* ancestor = parentWidget(); ancestor != nullptr; ancestor = ancestor->parentWidget()) {
        if (auto* stack = qobject_cast<StackedWidgetFit*>(ancestor)) {
            stack->refreshCurrentPageLayout();
            return;
        }
    }
}
