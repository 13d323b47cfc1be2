#include "simulator/clock.h"

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

void stopClock()
{
    stopped = true;
}

} // namespace sim
