#include "page/weldiopage.h"

#include "widgets/uiscale.h"

WeldioPage::WeldioPage(WeldSettingPage* settingPage, QWidget* parent) : QWidget(parent)
{
    Q_UNUSED(settingPage)
    setObjectName(QStringLiteral("WeldioPage"));
    initStyle();
}

void WeldioPage::initStyle()
{
    UiScale::applyExpandingPage(this);
}
