#include "support/LiteralCommentFilter.h"

using namespace Qt::StringLiterals;

namespace {

/// The position of @p pattern from position @p start on, counted from 1; 0 when there is none.
qint32 positionOf(const QString &text, const QString &pattern, qint32 start)
{
    return static_cast<qint32>(text.indexOf(pattern, start - 1)) + 1;
}

QString characters(const QString &text, qint32 start, qint32 length)
{
    return text.mid(start - 1, length);
}

} // namespace

LiteralCommentFilter::LiteralCommentFilter(const QString &text)
    : m_text(text)
    , m_length(static_cast<qint32>(text.size()))
    , m_openings(findAll(u"/*"_s))
    , m_closings(findAll(u"*/"_s))
    , m_quotes(findAll(u"'"_s))
    , m_lineFeeds(findAll(u"\n"_s))
{
    if (!m_lineFeeds.isEmpty() && m_lineFeeds.last() < m_length)
        m_lineFeeds.append(m_length + 1);
}

LiteralCommentFilter::Positions LiteralCommentFilter::findAll(const QString &pattern) const
{
    Positions result;
    for (qint32 p = positionOf(m_text, pattern, 1); p > 0; p = positionOf(m_text, pattern, p + 1))
        result.append(p);
    return result;
}

bool LiteralCommentFilter::isInBlockComment(qint32 p) const
{
    for (qsizetype i = 0; i < m_openings.size(); ++i) {
        if (m_openings.value(i) < p && p < m_closings.value(i))
            return true;
    }
    return false;
}

bool LiteralCommentFilter::isOnOneLine(qint32 firstQuote, qint32 secondQuote) const
{
    for (qsizetype k = 0; k < m_lineFeeds.size(); ++k) {
        if (m_lineFeeds.value(k) < firstQuote && secondQuote < m_lineFeeds.value(k + 1))
            return true;
    }
    return false;
}

qint32 LiteralCommentFilter::lineEndFrom(qint32 p) const
{
    for (const QString &lineEnd : {u"\r\n"_s, u"\r"_s, u"\n"_s}) {
        if (const qint32 e = positionOf(m_text, lineEnd, p); e > 0)
            return e;
    }
    return m_length;
}

QString LiteralCommentFilter::filtered() const
{
    QString result;
    qint32 start = 1;
    qsizetype firstPair = 0;
    for (;;) {
        const qint32 p = positionOf(m_text, u"--"_s, start);
        if (p == 0)
            return result + characters(m_text, start, m_length);
        result += characters(m_text, start, p - start);
        if (isInBlockComment(p)) {
            result += u"--"_s;
            start = p + 2;
            continue;
        }
        bool quoted = false;
        for (qsizetype j = firstPair; j < m_quotes.size() && !quoted; ++j) {
            const qint32 first = m_quotes.value(j);
            const qint32 second = m_quotes.value(j + 1);
            if (first < p && p < second && isOnOneLine(first, second)) {
                result += characters(m_text, first + 1, second - first - 1);
                start = second;
                firstPair = j + 2;
                quoted = true;
            }
        }
        if (!quoted)
            start = lineEndFrom(p) + 1;
    }
}
