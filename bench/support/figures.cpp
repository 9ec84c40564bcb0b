#include "support/figures.h"

#include <cstdio>

using namespace Qt::StringLiterals;

void printFigure(const QString &what, const QString &figure, const QString &goal)
{
    std::printf("%-66s %10s  %s\n", qPrintable(what), qPrintable(figure), qPrintable(goal));
    std::fflush(stdout);
}

void printRatio(const QString &what, double ratio, double goal)
{
    QString judged;
    if (goal > 0)
        judged = u"<= %1  %2"_s.arg(QString::number(goal), ratio <= goal ? u"met"_s : u"MISSED"_s);
    printFigure(what, QString::number(ratio, 'f', 3), judged);
}

QString secondsText(double seconds)
{
    return QString::number(seconds, 'f', 3) + u" s"_s;
}

QString megabytesText(qint64 bytes)
{
    return QString::number(static_cast<double>(bytes) / 1e6, 'f', 1) + u" MB"_s;
}
