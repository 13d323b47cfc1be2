#include "page/weldparameterpage.h"

#include "widgets/uiscale.h"

WeldParameterPage::WeldParameterPage(WeldSettingPage* settingPage, QWidget* parent) : QWidget(parent)
{
    Q_UNUSED(settingPage)
    setObjectName(QStringLiteral("WeldParameterPage"));
    initStyle();
}

void WeldParameterPage::initStyle()
{
    UiScale::applyExpandingPage(this);
}
