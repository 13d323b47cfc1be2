#include "plugin/corvane.h"

#include "common/controller.h"
#include "common/logline.h"
#include "common/names.h"
#include "page/laserweldpage.h"
#include "page/showstatusbar.h"
#include "plugin/pendantbuttons.h"
#include "rl/rllaserwelddefine.h"

#include "pendix/hostui.h"
#include "pendix/interfacemanager.h"

namespace
{
constexpr int kApiVersion = 1;
constexpr int kStatusBarPosition = 1;
} // namespace

namespace pendix
{

int api()
{
    return kApiVersion;
}

Corvane::Corvane(QObject* parent) : PluginBase(parent)
{
    setDefaultGlobalSheet(false);
    setPluginLabel(tr("Laser Welding"));
}

void Corvane::init()
{
    const QString name = QString::fromLatin1(names::kPlugin);
    logLine(LogLevel::Information) << "Corvane::iniUi()";
    const Business::Watch watch = m_business.watch();
    page = new LaserWeldPage(nullptr);
    CreateCenterWidget(name, page);
    if (!watch.ownerLives()) {
        return;
    }
    logLine(LogLevel::Information) << "Corvane::init()";
    initPhysicalButton();
    if (!watch.ownerLives()) {
        return;
    }
    statusBar = new ShowStatusBar(nullptr);
    logLine(LogLevel::Information) << "Corvane::initPhysicalButton()";
    CreateStatusBar(name, statusBar, kStatusBarPosition);
    // The controller is asked on the next connection; until then the picture warns rather than reassures.
    if (watch.ownerLives()) {
        showWeldingMode(false);
    }
}

void Corvane::afterInit()
{
    logLine(LogLevel::Information) << "PendixDemo::initData()";
    // What it registers outlives it.
    const RlLaserWeldDefine instructions(this);
}

void Corvane::render()
{
    const Business::Watch watch = m_business.watch();
    if (page) {
        page->initStyle();
    }
    InterfaceManager* host = pendixInterface();
    if (host != nullptr && watch.ownerLives()) {
        connect(host, &InterfaceManager::sigNetworkConnect, this, &Corvane::readWeldingMode, Qt::UniqueConnection);
    }
}

void Corvane::idle() {}

void Corvane::initPhysicalButton()
{
    const QString name = QString::fromLatin1(names::kPlugin);
    logLine(LogLevel::Information) << "Corvane::initPhysicalButton()";
    const PendantButtons buttons = pendantButtons(this);
    const Business::Watch watch = m_business.watch();
    CreatePhyButtonList(name, name, buttons.first, buttons.second, {QString()});
    if (watch.ownerLives()) {
        ChangePhyButtonStatus(name, name, true);
    }
}

void Corvane::readWeldingMode()
{
    const Business::Watch watch = m_business.watch();
    const bool isVirtual = controller::readNode(QLatin1String(names::node::kVirtualWelding)).toBool(false);
    if (watch.ownerLives()) {
        showWeldingMode(isVirtual);
    }
}

void Corvane::showWeldingMode(bool isVirtual)
{
    if (!statusBar) {
        return;
    }
    if (isVirtual) {
        statusBar->SetVirtualWelding();
    } else {
        statusBar->SetRealWelding();
    }
}

} // namespace pendix
