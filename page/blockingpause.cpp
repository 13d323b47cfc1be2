#include "page/blockingpause.h"

#include <cerrno>
#include <ctime>

void blockingPause(int milliseconds)
{
    timespec remaining{};
    remaining.tv_sec = milliseconds / 1000;
    remaining.tv_nsec = (milliseconds % 1000) * 1000000L;
    while (nanosleep(&remaining, &remaining) == -1 && errno == EINTR) {
    }
}
