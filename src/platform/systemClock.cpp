#include "platform/systemClock.h"

#include "platform/RuntimeError.h"
#include "platform/numberForms.h"

#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

std::function<QDateTime()> clockSource;

QDateTime utcNow()
{
    return clockSource ? clockSource() : QDateTime::currentDateTimeUtc();
}

/// The other bound is left alone: a run over midnight is to show its negative time.
int notTooLong(int seconds)
{
    if (seconds > std::numeric_limits<qint16>::max())
        throw RuntimeError(ErrorNumber::Overflow);
    return seconds;
}

} // namespace

QTime utcTimeOfDay()
{
    return utcNow().time();
}

QDateTime localNow()
{
    const QDateTime now = utcNow().toLocalTime();
    const QTime time = now.time();
    return QDateTime(now.date(), QTime(time.hour(), time.minute(), time.second()));
}

double elapsedSeconds(QTime start, QTime end)
{
    const int hours = notTooLong((end.hour() - start.hour()) * 3600);
    const int seconds =
        notTooLong(hours + (end.minute() - start.minute()) * 60 + (end.second() - start.second()));
    return seconds + (end.msec() - start.msec()) / 1000.0;
}

QString elapsedText(double seconds)
{
    return seconds >= 1.0 ? doubleToText(seconds) + " sec"_L1
                          : doubleToText(seconds * 1000) + " msec"_L1;
}

void setClockSource(std::function<QDateTime()> source)
{
    clockSource = std::move(source);
}
