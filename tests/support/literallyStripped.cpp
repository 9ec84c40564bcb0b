#include "support/literallyStripped.h"

#include <QList>

using namespace Qt::StringLiterals;

namespace {

/// Positions counted from 1; an entry that was never written reads as 0.
using Positions = QList<qint32>;

/// The position of @p pattern from position @p start on; 0 when there is none.
qint32 positionOf(const QString &text, const QString &pattern, qint32 start)
{
    return static_cast<qint32>(text.indexOf(pattern, start - 1)) + 1;
}

Positions findAll(const QString &text, const QString &pattern)
{
    Positions result;
    for (qint32 p = positionOf(text, pattern, 1); p > 0; p = positionOf(text, pattern, p + 1))
        result.append(p);
    return result;
}

/// Whether a pair of entries of the same number has @p from and @p to between them.
bool isBetween(const Positions &begins, const Positions &ends, qint32 from, qint32 to)
{
    for (qsizetype i = 0; i < begins.size(); ++i) {
        if (begins.value(i) < from && to < ends.value(i))
            return true;
    }
    return false;
}

qint32 lineEndFrom(const QString &text, qint32 p)
{
    for (const QString &lineEnd : {u"\r\n"_s, u"\r"_s, u"\n"_s}) {
        if (const qint32 e = positionOf(text, lineEnd, p); e > 0)
            return e;
    }
    return static_cast<qint32>(text.size());
}

} // namespace

QString literallyStripped(const QString &text)
{
    const auto characters = [&](qint32 start, qint32 end) {
        return text.mid(start - 1, end - start);
    };
    const auto length = static_cast<qint32>(text.size());
    const Positions openings = findAll(text, u"/*"_s);
    const Positions closings = findAll(text, u"*/"_s);
    const Positions quotes = findAll(text, u"'"_s);
    Positions lineFeeds = findAll(text, u"\n"_s);
    if (!lineFeeds.isEmpty() && lineFeeds.last() < length)
        lineFeeds.append(length + 1);
    const Positions nextLineFeeds = lineFeeds.mid(1);

    QString result;
    qint32 start = 1;
    qsizetype firstPair = 0;
    for (qint32 p = positionOf(text, u"--"_s, 1); p > 0; p = positionOf(text, u"--"_s, start)) {
        result += characters(start, p);
        if (isBetween(openings, closings, p, p)) {
            result += u"--"_s;
            start = p + 2;
            continue;
        }
        bool quoted = false;
        for (qsizetype j = firstPair; j < quotes.size() && !quoted; ++j) {
            const qint32 first = quotes.value(j);
            const qint32 second = quotes.value(j + 1);
            quoted = first < p && p < second && isBetween(lineFeeds, nextLineFeeds, first, second);
            if (quoted) {
                result += characters(first + 1, second);
                start = second;
                firstPair = j + 2;
            }
        }
        if (!quoted)
            start = lineEndFrom(text, p) + 1;
    }
    return result + text.mid(start - 1);
}
