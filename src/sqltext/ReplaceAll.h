#pragma once

#include <QString>

#include <vector>

/// Replaces the first occurrence of a text, searched for from the beginning, again and again until
/// none is left.
///
/// Occurrences that arise across the border of a replacement count like any other: "ab" by "a" in
/// "aabb" ends in "aa". A replacement that holds the searched text therefore never ends, and some
/// that do not hold it never end either; advance() does the work in portions so that the caller
/// stays in command.
///
/// The cost is linear in the length of the text and of what is put into it: nothing is searched
/// twice. Characters are passed one by one into an automaton that knows how much of the searched
/// text ends at each of them; a replacement takes the matched ones out again and is itself
/// passed in before the rest of the text.
class ReplaceAll
{
public:
    /// Characters are compared exactly, as UTF-16 units.
    /// @param find  must not be empty
    ReplaceAll(QString text, QString find, QString replacement);

    /// Replaces up to @p most times.
    /// @returns whether the end of the text was reached, with no occurrence left
    bool advance(qsizetype most);

    /// How often was replaced so far.
    qsizetype replaced() const { return m_replaced; }
    /// The text as the replacements so far have left it, and its length without building it.
    QString text() const;
    qsizetype length() const;

private:
    bool takeNext(QChar &next);
    qsizetype matchLengthAfter(QChar next) const;

    QString m_source;
    QString m_find;
    QString m_replacement;
    qsizetype m_sourceTaken = 0;
    /// For each length of a matched beginning of m_find, the length of the longest shorter one that
    /// may go on with another character.
    std::vector<qsizetype> m_fallback;

    QString m_passed;                    ///< free of occurrences
    std::vector<quint32> m_matchLengths; ///< how much of m_find ends at each character of m_passed
    std::vector<quint32> m_unpassedFrom; ///< ends of replacements that come before the rest
    qsizetype m_replaced = 0;
};
