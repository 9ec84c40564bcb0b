#include "dataaccess/RowSearch.h"

#include "dataaccess/Recordset.h"

RowSearch::RowSearch(const QString &text, Qt::CaseSensitivity sensitivity)
    : m_matcher(text, sensitivity)
{
}

int RowSearch::field(const Recordset &recordset, qint64 row, int first, int last, bool forward)
{
    // Most rows do not hold it anywhere; one that seems to may hold it across two cells.
    if (!holds(recordset, row, first, last))
        return -1;
    for (; first <= last; forward ? ++first : --last) {
        const int field = forward ? first : last;
        if (holds(recordset, row, field, field))
            return field;
    }
    return -1;
}

bool RowSearch::holds(const Recordset &recordset, qint64 row, int first, int last)
{
    if (first > last)
        return false;
    m_text.resize(0);
    recordset.appendRowText(row, first, last, QChar::ParagraphSeparator, m_text);
    return m_matcher.indexIn(m_text) >= 0;
}
