#include "simulator/clock.h"

#include <chrono>

namespace sim
{

namespace
{
bool stopped = false;
}

QDateTime now()
{
    return stopped ? QDateTime(QDate(2026, 1, 1), QTime(8, 0)) : QDateTime::currentDateTime();
}

qint64 elapsedMs()
{
    using namespace std::chrono;
    return stopped ? 0 : duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

void stopClock()
{
    stopped = true;
}

} // namespace sim
