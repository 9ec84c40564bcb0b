#include "sqltext/Occurrences.h"

Occurrences::Occurrences(QStringView text, QStringView pattern)
    : m_text(text)
    , m_pattern(pattern)
    , m_current(find(0))
{
}

qsizetype Occurrences::advanceTo(qsizetype position)
{
    if (m_current < position)
        m_current = find(position);
    return m_current;
}

qsizetype Occurrences::find(qsizetype from) const
{
    // Searching for the first character alone is what runs at the speed of memory.
    const qsizetype lastStart = m_text.size() - m_pattern.size();
    for (qsizetype at = m_text.indexOf(m_pattern.front(), from); at >= 0 && at <= lastStart;
         at = m_text.indexOf(m_pattern.front(), at + 1)) {
        if (m_text[at + m_pattern.size() - 1] == m_pattern.back())
            return at;
    }
    return none;
}

QString withExchanged(const QString &text, QStringView pattern, QStringView replacement)
{
    const QStringView view(text);
    Occurrences found(view, pattern);
    if (found.current() == Occurrences::none)
        return text;
    QString result;
    result.reserve(text.size());
    qsizetype from = 0;
    for (; found.current() != Occurrences::none; found.advanceTo(from)) {
        result.append(view.sliced(from, found.current() - from)).append(replacement);
        from = found.current() + pattern.size();
    }
    return result.append(view.sliced(from));
}
