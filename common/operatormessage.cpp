#include "common/operatormessage.h"

#include "common/names.h"

#include "pendix/interfacemanager.h"

namespace
{
constexpr int kLowestChangingLevel = 3;
}

void tellOperator(pendix::enThrowLogLevel level, const QString& text)
{
    ThrowLog(QString::fromLatin1(names::kPlugin), level, text);
}

bool operatorMayChange()
{
    pendix::InterfaceManager* host = pendixInterface();
    return host != nullptr && host->getUserOperateLevel() >= kLowestChangingLevel;
}
