#pragma once

#include "sqltext/Occurrences.h"

#include <QString>
#include <QStringView>

/// What stripComments() does, as one walk over the text. All that has to be known about a `--` is
/// asked for with growing positions, so that every pattern is searched for once: time is linear in
/// the text.
class CommentFilter
{
public:
    explicit CommentFilter(const QString &text);

    QString filtered();

private:
    bool isInBlockComment(qsizetype dashes);
    bool isQuoted(qsizetype dashes);
    qsizetype endOfComment(qsizetype dashes);

    QString m_source;
    QStringView m_text;
    Occurrences m_dashes;
    Occurrences m_commentOpenings;
    Occurrences m_commentClosings;
    Occurrences m_quotes;
    Occurrences m_lineFeedsAfterQuotes;
    Occurrences m_lineEndPairs;
    Occurrences m_carriageReturns;
    Occurrences m_lineFeeds;

    qsizetype m_openingsPassed = 0;
    qsizetype m_closingsPassed = 0;
    qsizetype m_pairedClosing = -1; ///< closing with the index of the last opening passed
    qsizetype m_firstLineFeed;      ///< `none` in a text of one line
    qsizetype m_quoteBefore = -1;   ///< last quote before the present `--`
    qsizetype m_quoteUsed = -1;     ///< second quote of the pair that kept a `--` last
};
