#include "sqltext/ReplaceAll.h"

#include <utility>

namespace {

/// The failure links of the search automaton. Entry n stands for n matched characters; −1 means
/// that the next character cannot be part of an occurrence. Links that would fail on the same
/// character again are skipped, so that a character is settled in O(log n) steps.
std::vector<qsizetype> failureLinks(const QString &find)
{
    std::vector<qsizetype> links(find.size() + 1, -1);
    qsizetype border = 0;
    for (qsizetype matched = 1; matched < find.size(); ++matched) {
        links[matched] = find[matched] == find[border] ? links[border] : border;
        while (border >= 0 && find[matched] != find[border])
            border = links[border];
        ++border;
    }
    return links;
}

} // namespace

ReplaceAll::ReplaceAll(QString text, QString find, QString replacement)
    : m_source(std::move(text))
    , m_find(std::move(find))
    , m_replacement(std::move(replacement))
    , m_fallback(failureLinks(m_find))
{
    Q_ASSERT(!m_find.isEmpty());
    m_passed.reserve(m_source.size());
    m_matchLengths.reserve(m_source.size());
}

bool ReplaceAll::advance(qsizetype most)
{
    QChar next;
    while (most > 0) {
        if (!takeNext(next))
            return true;
        const qsizetype matched = matchLengthAfter(next);
        if (matched < m_find.size()) {
            m_passed.append(next);
            m_matchLengths.push_back(static_cast<quint32>(matched));
            continue;
        }
        m_passed.chop(matched - 1);
        m_matchLengths.resize(m_passed.size());
        if (!m_replacement.isEmpty())
            m_unpassedFrom.push_back(0);
        ++m_replaced;
        --most;
    }
    return false;
}

/// The next character that has not passed the automaton: of the latest replacement first, of the
/// text last. An end of a replacement is dropped as soon as nothing is left of it.
bool ReplaceAll::takeNext(QChar &next)
{
    if (!m_unpassedFrom.empty()) {
        quint32 &from = m_unpassedFrom.back();
        next = m_replacement[from];
        if (++from == m_replacement.size())
            m_unpassedFrom.pop_back();
        return true;
    }
    if (m_sourceTaken == m_source.size())
        return false;
    next = m_source[m_sourceTaken++];
    return true;
}

qsizetype ReplaceAll::matchLengthAfter(QChar next) const
{
    qsizetype matched = m_matchLengths.empty() ? 0 : m_matchLengths.back();
    while (matched >= 0 && m_find[matched] != next)
        matched = m_fallback[matched];
    return matched + 1;
}

QString ReplaceAll::text() const
{
    QString text;
    text.reserve(length());
    text.append(m_passed);
    for (auto from = m_unpassedFrom.rbegin(); from != m_unpassedFrom.rend(); ++from)
        text.append(QStringView(m_replacement).mid(*from));
    text.append(QStringView(m_source).mid(m_sourceTaken));
    return text;
}

qsizetype ReplaceAll::length() const
{
    return m_source.size() + m_replaced * (m_replacement.size() - m_find.size());
}
