#include "sqltext/CommentFilter.h"

using namespace Qt::StringLiterals;

CommentFilter::CommentFilter(const QString &text)
    : m_source(text)
    , m_text(m_source)
    , m_dashes(m_text, u"--")
    , m_commentOpenings(m_text, u"/*")
    , m_commentClosings(m_text, u"*/")
    , m_quotes(m_text, u"'")
    , m_lineFeedsAfterQuotes(m_text, u"\n")
    , m_lineEndPairs(m_text, u"\r\n")
    , m_carriageReturns(m_text, u"\r")
    , m_lineFeeds(m_text, u"\n")
    , m_firstLineFeed(m_lineFeeds.current())
{
}

QString CommentFilter::filtered()
{
    QString result;
    result.reserve(m_text.size());
    qsizetype start = 0;
    while (m_dashes.advanceTo(start) != Occurrences::none) {
        const qsizetype dashes = m_dashes.current();
        result.append(m_text.sliced(start, dashes - start));
        if (isInBlockComment(dashes)) {
            result.append("--"_L1);
            start = dashes + 2;
        } else if (isQuoted(dashes)) {
            // From the opening quote on, although what stands before the dashes is there already.
            m_quoteUsed = m_quotes.current();
            result.append(m_text.sliced(m_quoteBefore + 1, m_quoteUsed - m_quoteBefore - 1));
            start = m_quoteUsed;
        } else {
            start = endOfComment(dashes);
        }
    }
    return result.append(m_text.sliced(start));
}

/// Openings and closings are paired by their index alone. Both positions grow with the index, so
/// of all openings before the dashes the last one that has a partner reaches farthest.
bool CommentFilter::isInBlockComment(qsizetype dashes)
{
    for (; m_commentOpenings.current() < dashes; m_commentOpenings.advance())
        ++m_openingsPassed;
    while (m_closingsPassed < m_openingsPassed &&
           m_commentClosings.current() != Occurrences::none) {
        m_pairedClosing = m_commentClosings.current();
        m_commentClosings.advance();
        ++m_closingsPassed;
    }
    return m_pairedClosing > dashes;
}

/// Whether the quotes before and after the dashes stand on one line that begins after a line
/// feed. The closing quote of a pair that was used opens no pair.
bool CommentFilter::isQuoted(qsizetype dashes)
{
    for (; m_quotes.current() < dashes; m_quotes.advance())
        m_quoteBefore = m_quotes.current();
    if (m_quoteBefore <= m_quoteUsed || m_quotes.current() == Occurrences::none)
        return false;
    return m_firstLineFeed < m_quoteBefore &&
           m_lineFeedsAfterQuotes.advanceTo(m_quoteBefore) > m_quotes.current();
}

/// Where the text goes on: after the carriage return of the next pair, however far away; after
/// the next lone carriage return when there is no pair; after the next line feed when there is
/// neither.
qsizetype CommentFilter::endOfComment(qsizetype dashes)
{
    for (Occurrences *lineEnds : {&m_lineEndPairs, &m_carriageReturns, &m_lineFeeds}) {
        if (lineEnds->advanceTo(dashes) != Occurrences::none)
            return lineEnds->current() + 1;
    }
    return m_text.size();
}
