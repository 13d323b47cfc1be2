#include "page/characteristicscurvepage.h"

#include "widgets/uiscale.h"

CharacteristicsCurvePage::CharacteristicsCurvePage(WeldSettingPage* settingPage, QWidget* parent) : QWidget(parent)
{
    Q_UNUSED(settingPage)
    setObjectName(QStringLiteral("CharacteristicsCurvePage"));
    initStyle();
}

void CharacteristicsCurvePage::initStyle()
{
    UiScale::applyExpandingPage(this);
}
