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
    page = new LaserWeldPage(nullptr);
    CreateCenterWidget(name, page);
    logLine(LogLevel::Information) << "Corvane::init()";
    initPhysicalButton();
    statusBar = new ShowStatusBar(nullptr);
    logLine(LogLevel::Information) << "Corvane::initPhysicalButton()";
    CreateStatusBar(name, statusBar, kStatusBarPosition);
    // The controller is asked on the next connection; until then the picture warns rather than reassures.
    showWeldingMode(false);
}

void Corvane::afterInit()
{
    logLine(LogLevel::Information) << "PendixDemo::initData()";
    // What it registers outlives it.
    const RlLaserWeldDefine instructions(this);
}

void Corvane::render()
{
    if (page) {
        page->initStyle();
    }
    if (InterfaceManager* host = pendixInterface()) {
        connect(host, &InterfaceManager::sigNetworkConnect, this, &Corvane::readWeldingMode, Qt::UniqueConnection);
    }
}

void Corvane::idle() {}

void Corvane::initPhysicalButton()
{
    const QString name = QString::fromLatin1(names::kPlugin);
    logLine(LogLevel::Information) << "Corvane::initPhysicalButton()";
    const PendantButtons buttons = pendantButtons(this);
    CreatePhyButtonList(name, name, buttons.first, buttons.second, {QString()});
    ChangePhyButtonStatus(name, name, true);
}

void Corvane::readWeldingMode()
{
    showWeldingMode(controller::readNode(QLatin1String(names::node::kVirtualWelding)).toBool(false));
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
