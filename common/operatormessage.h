#ifndef COMMON_OPERATORMESSAGE_H
#define COMMON_OPERATORMESSAGE_H

#include "pendix/hostui.h"

#include <QString>

/// Shows a translated text in the operator's message area, with the plug-in as its source.
void tellOperator(pendix::enThrowLogLevel level, const QString& text);

/// Whether the logged-in operator may change controller state: access level 3 or higher. The level is
/// asked of the host on every call; without a host nobody may.
bool operatorMayChange();

#endif
