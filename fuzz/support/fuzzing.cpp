#include "support/fuzzing.h"

#include <QDebug>

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

QList<QString> textsOf(const std::uint8_t *data, std::size_t size, qsizetype count)
{
    constexpr auto separator = "\n~\n"_L1;
    QString rest = textOf(data, size);
    QList<QString> texts;
    while (texts.size() < count - 1) {
        const qsizetype end = rest.indexOf(separator);
        texts.append(rest.left(end));
        rest = end < 0 ? QString() : rest.mid(end + separator.size());
    }
    texts.append(rest);
    return texts;
}

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
