#include "sqltext/elapsedTime.h"

#include "platform/RuntimeError.h"
#include "platform/numberForms.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace {

/// The other bound is left alone: a run over midnight is to show its negative time.
int notTooLong(int seconds)
{
    if (seconds > std::numeric_limits<qint16>::max())
        throw RuntimeError(ErrorNumber::Overflow);
    return seconds;
}

} // namespace

double elapsedSeconds(const SystemTime &start, const SystemTime &end)
{
    const int hours = notTooLong((end.hour - start.hour) * 3600);
    const int seconds =
        notTooLong(hours + (end.minute - start.minute) * 60 + (end.second - start.second));
    return seconds + (end.millisecond - start.millisecond) / 1000.0;
}

QString elapsedText(double seconds)
{
    return seconds >= 1.0 ? doubleToText(seconds) + " sec"_L1
                          : doubleToText(seconds * 1000) + " msec"_L1;
}
