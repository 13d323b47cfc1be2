#include "page/pageaccess.h"

#include "common/operatormessage.h"
#include "page/weldsettingpage.h"

PageAccess accessOf(const QPointer<WeldSettingPage>& settingPage)
{
    const QPointer<WeldSettingPage> page = settingPage; // whose pointer it is may be gone after the question
    if (!operatorMayChange()) {
        return PageAccess::Locked;
    }
    return page && page->getMainBtnStatus() ? PageAccess::ReadOnly : PageAccess::Editable;
}
