#include "page/pageaccess.h"

#include "common/operatormessage.h"
#include "page/weldsettingpage.h"

#include <QPointer>

PageAccess accessOf(WeldSettingPage* settingPage)
{
    const QPointer<WeldSettingPage> page(settingPage);
    if (!operatorMayChange()) {
        return PageAccess::Locked;
    }
    return page && page->getMainBtnStatus() ? PageAccess::ReadOnly : PageAccess::Editable;
}
