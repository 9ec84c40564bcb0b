#pragma once

#include "sqltext/SyntaxDefinition.h"

#include <QByteArray>
#include <QHash>

#include <array>
#include <vector>

/// Cuts SQL text in UTF-8 into stretches of one colour, line by line, in time linear in the text.
class ColourTokenizer
{
public:
    ColourTokenizer();

    void setDefinition(const SyntaxDefinition &definition);
    void setWordClasses(const KeywordTable &table);

    /// Between two stretches; otherwise the number of the delimiter that is open, from 1.
    using State = int;
    static constexpr State Between = 0;

    struct Token
    {
        TextKind kind = TextKind::Name;
        qsizetype length = 0; ///< in bytes
        /// The state after it.
        State state = Between;
    };

    /// The stretch that begins at @p at, which is before @p end: the end of the line, after its
    /// line feed, or of the text. A stretch is never empty.
    Token next(const char *at, const char *end, State state) const;

private:
    struct Phrase
    {
        QByteArray rest; ///< the upper-case words after the first, each after one blank
        TextKind kind;
    };

    Token inside(const Delimiter &delimiter, State state, const char *at, const char *from,
                 const char *end) const;
    Token word(const char *at, const char *end) const;
    Token number(const char *at, const char *end) const;
    State delimiterAt(const char *at, const char *end) const;
    void addWord(const QByteArray &word, TextKind kind);

    std::vector<Delimiter> m_delimiters;
    /// The delimiters that a byte can begin, longest mark first.
    std::array<std::vector<State>, 256> m_delimitersByByte;
    QHash<QByteArray, TextKind> m_words;
    QHash<QByteArray, std::vector<Phrase>> m_phrases;
    std::array<TextKind, 256> m_punctuation{};
};
