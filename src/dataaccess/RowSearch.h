#pragma once

#include <QString>
#include <QStringMatcher>

class Recordset;

/// Looks for a text in the cells of rows, one row after the other.
class RowSearch
{
public:
    RowSearch() = default;
    RowSearch(const QString &text, Qt::CaseSensitivity sensitivity);

    /// The one of a row's fields from @p first to @p last whose text form holds the text, forward
    /// the first of them and otherwise the last; -1 when none does or there are none.
    /// @throws RuntimeError as Recordset::appendRowText()
    int field(const Recordset &recordset, qint64 row, int first, int last, bool forward);

private:
    bool holds(const Recordset &recordset, qint64 row, int first, int last);

    QStringMatcher m_matcher;
    QString m_text;
};
