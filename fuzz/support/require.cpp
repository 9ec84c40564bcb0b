#include "support/require.h"

#include <QDebug>

#include <cstdio>
#include <cstdlib>

void require(bool holds, const char *property)
{
    if (holds)
        return;
    std::fprintf(stderr, "This does not hold: %s\n", property);
    std::abort();
}

void requireEqual(const QString &found, const QString &expected, const char *property)
{
    if (found != expected)
        qDebug() << "found   " << found << "\nexpected" << expected;
    require(found == expected, property);
}
