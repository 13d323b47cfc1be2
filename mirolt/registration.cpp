#include "mirolt/mirolt.h"

namespace
{

bool registerPlugin()
{
    pendixFactory()->regist(QString::fromLatin1(mirolt::kPlugin),
                            [](QObject* parent) -> pendix::PluginBase* { return new mirolt::Mirolt(parent); });
    return true;
}

/// Initialised while the library is loaded, which is how the host learns of the plug-in.
[[maybe_unused]] const bool registered = registerPlugin();

} // namespace
