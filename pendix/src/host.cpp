#include "pendixhost/host.h"

namespace pendix
{

namespace
{
Host* currentHost = nullptr;
}

Host::~Host()
{
    if (currentHost == this) {
        currentHost = nullptr;
    }
}

void installHost(Host* host)
{
    currentHost = host;
}

Host* installedHost()
{
    return currentHost;
}

} // namespace pendix
