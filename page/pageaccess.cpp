#include "page/pageaccess.h"

#include "common/operatormessage.h"
#include "page/weldsettingpage.h"

PageAccess accessOf(const QPointer<WeldSettingPage>& settingPage)
{
    if (!operatorMayChange()) {
        return PageAccess::Locked;
    }
    return settingPage && settingPage->getMainBtnStatus() ? PageAccess::ReadOnly : PageAccess::Editable;
}
