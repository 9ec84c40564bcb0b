#pragma once

#include <QString>

#include <limits>

/// The occurrences of a pattern in a text, visited from the front to the back. The whole walk
/// costs one search of the text, however often the present occurrence is asked for.
class Occurrences
{
public:
    /// The position after every text: there is no further occurrence.
    static constexpr qsizetype none = std::numeric_limits<qsizetype>::max();

    /// Stands on the first occurrence. @p pattern has one or two characters; both texts have to
    /// outlive the walk.
    Occurrences(QStringView text, QStringView pattern);

    /// Position of the present occurrence, counted from 0.
    qsizetype current() const { return m_current; }
    /// Goes on to the next occurrence, which may overlap the present one.
    void advance() { m_current = find(m_current + 1); }
    /// Goes on to the first occurrence that is not before @p position and returns it.
    qsizetype advanceTo(qsizetype position);

private:
    qsizetype find(qsizetype from) const;

    QStringView m_text;
    QStringView m_pattern;
    qsizetype m_current;
};

/// @p text with another text in the place of every occurrence of @p pattern. Unlike
/// QString::replace, which moves the rest of the text for every thousand of them, this takes time
/// linear in the text.
QString withExchanged(const QString &text, QStringView pattern, QStringView replacement);
