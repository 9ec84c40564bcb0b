#include "support/figures.h"

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

QString judged(const QString &goal, bool isMet)
{
    return goal + (isMet ? u"  met"_s : u"  MISSED"_s);
}

} // namespace

void printFigure(const QString &what, const QString &figure, const QString &goal)
{
    std::printf("%-66s %10s  %s\n", qPrintable(what), qPrintable(figure), qPrintable(goal));
    std::fflush(stdout);
}

void printRatio(const QString &what, double ratio, double goal)
{
    const QString limit =
        goal > 0 ? judged(u"<= %1"_s.arg(QString::number(goal)), ratio <= goal) : QString();
    printFigure(what, QString::number(ratio, 'f', 3), limit);
}

void printMilliseconds(const QString &what, double milliseconds, double goal)
{
    printFigure(what, QString::number(milliseconds, 'f', 2) + u" ms"_s,
                judged(u"<= %1 ms"_s.arg(QString::number(goal)), milliseconds <= goal));
}

void printOutcome(const QString &what, const QString &outcome, const QString &wanted)
{
    printFigure(what, outcome, judged(wanted, outcome == wanted));
}

QString secondsText(double seconds)
{
    return QString::number(seconds, 'f', 3) + u" s"_s;
}

QString megabytesText(qint64 bytes)
{
    return QString::number(static_cast<double>(bytes) / 1e6, 'f', 1) + u" MB"_s;
}

void giveUp(const QString &why)
{
    std::fprintf(stderr, "%s\n", qPrintable(why));
    std::_Exit(1);
}
