#include "platform/systemClock.h"

#include <utility>

namespace {

std::function<QDateTime()> &clockSource()
{
    static std::function<QDateTime()> source;
    return source;
}

QDateTime utcNow()
{
    return clockSource() ? clockSource()() : QDateTime::currentDateTimeUtc();
}

} // namespace

SystemTime systemTime()
{
    const QDateTime now = utcNow();
    const QDate date = now.date();
    const QTime time = now.time();
    SystemTime result;
    result.year = static_cast<qint16>(date.year());
    result.month = static_cast<qint16>(date.month());
    result.dayOfWeek = static_cast<qint16>(date.dayOfWeek() % 7);
    result.day = static_cast<qint16>(date.day());
    result.hour = static_cast<qint16>(time.hour());
    result.minute = static_cast<qint16>(time.minute());
    result.second = static_cast<qint16>(time.second());
    result.millisecond = static_cast<qint16>(time.msec());
    return result;
}

QDateTime localNow()
{
    const QDateTime now = utcNow().toLocalTime();
    const QTime time = now.time();
    return QDateTime(now.date(), QTime(time.hour(), time.minute(), time.second()));
}

void setClockSource(std::function<QDateTime()> source)
{
    clockSource() = std::move(source);
}
