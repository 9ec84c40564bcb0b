#pragma once

#include <QList>
#include <QString>

/// A second writing of what stripComments() promises, step by step over lists of positions and
/// with no regard to time, to compare the real one with.
class LiteralCommentFilter
{
public:
    explicit LiteralCommentFilter(const QString &text);

    QString filtered() const;

private:
    /// Positions counted from 1; an entry that was never written reads as 0.
    using Positions = QList<qint32>;

    Positions findAll(const QString &pattern) const;
    bool isInBlockComment(qint32 p) const;
    bool isOnOneLine(qint32 firstQuote, qint32 secondQuote) const;
    qint32 lineEndFrom(qint32 p) const;

    QString m_text;
    qint32 m_length;
    Positions m_openings;
    Positions m_closings;
    Positions m_quotes;
    Positions m_lineFeeds;
};
