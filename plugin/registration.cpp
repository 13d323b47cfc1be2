#include "plugin/corvane.h"

#include "common/names.h"

namespace
{

bool runAll()
{
    pendixFactory()->regist(QString::fromLatin1(names::kPlugin),
                            [](QObject* parent) -> pendix::PluginBase* { return new pendix::Corvane(parent); });
    return true;
}

/// Initialised while the library is loaded, which is how the host learns of the plug-in.
[[maybe_unused]] const bool registered = runAll();

} // namespace
