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

    /// The first of a row's fields from @p first to @p last whose text form holds the text, or the
    /// last of them; -1 when none does or there are none.
    /// @throws RuntimeError as Recordset::appendRowText()
    int firstField(const Recordset &recordset, qint64 row, int first, int last);
    int lastField(const Recordset &recordset, qint64 row, int first, int last);

private:
    bool holds(const Recordset &recordset, qint64 row, int first, int last);

    QStringMatcher m_matcher;
    QString m_text;
};
