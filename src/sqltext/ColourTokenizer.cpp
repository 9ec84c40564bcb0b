#include "sqltext/ColourTokenizer.h"

#include <algorithm>

namespace {

// Longer words are in no class.
constexpr qsizetype longestWord = 64;

enum class ByteClass : quint8 { Blank, LineEnd, Digit, Letter, Punctuation };

constexpr std::array<ByteClass, 256> classifyBytes()
{
    std::array<ByteClass, 256> classes{};
    for (std::size_t byte = 0; byte < classes.size(); ++byte) {
        const bool letter = (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
        if (byte == '\r' || byte == '\n')
            classes[byte] = ByteClass::LineEnd;
        else if (byte <= ' ')
            classes[byte] = ByteClass::Blank;
        else if (byte >= '0' && byte <= '9')
            classes[byte] = ByteClass::Digit;
        else if (letter || byte == '_' || byte == '$' || byte == '#' || byte >= 0x80)
            classes[byte] = ByteClass::Letter;
        else
            classes[byte] = ByteClass::Punctuation;
    }
    return classes;
}

constexpr std::array<ByteClass, 256> byteClasses = classifyBytes();

std::size_t indexOf(char byte)
{
    return static_cast<unsigned char>(byte);
}

ByteClass classOf(char byte)
{
    return byteClasses[indexOf(byte)];
}

bool isWordByte(char byte)
{
    return classOf(byte) == ByteClass::Letter || classOf(byte) == ByteClass::Digit;
}

char upper(char byte)
{
    return byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - ('a' - 'A')) : byte;
}

/// Whether the text at @p at is @p mark, whose letters stand for both cases.
bool startsWith(const char *at, const char *end, const QByteArray &mark)
{
    return end - at >= mark.size() && std::equal(mark.begin(), mark.end(), at, [](char a, char b) {
               return upper(a) == upper(b);
           });
}

ColourTokenizer::Token token(TextKind kind, const char *begin, const char *end)
{
    return {kind, end - begin, ColourTokenizer::Between};
}

} // namespace

ColourTokenizer::ColourTokenizer()
{
    m_punctuation.fill(TextKind::Operator);
}

void ColourTokenizer::setDefinition(const SyntaxDefinition &definition)
{
    m_delimiters = definition.delimiters;
    for (auto &states : m_delimitersByByte)
        states.clear();
    for (std::size_t i = 0; i < m_delimiters.size(); ++i) {
        const char first = m_delimiters[i].begin.at(0);
        const auto state = static_cast<State>(i + 1);
        m_delimitersByByte[indexOf(first)].push_back(state);
        if (classOf(first) == ByteClass::Letter && indexOf(first) < 0x80)
            m_delimitersByByte[indexOf(first) ^ 0x20U].push_back(state);
    }
    const auto longer = [this](State a, State b) {
        return m_delimiters[static_cast<std::size_t>(a - 1)].begin.size() >
               m_delimiters[static_cast<std::size_t>(b - 1)].begin.size();
    };
    for (auto &states : m_delimitersByByte)
        std::stable_sort(states.begin(), states.end(), longer);
}

void ColourTokenizer::setWordClasses(const KeywordTable &table)
{
    m_words.clear();
    m_phrases.clear();
    m_punctuation.fill(TextKind::Operator);
    // From the last class down: a word that stands in two classes belongs to the first.
    for (std::size_t group = table.size() - 1; group >= 1; --group) {
        const auto kind =
            static_cast<TextKind>(static_cast<std::size_t>(TextKind::Class1) + group - 1);
        for (const QString &entry : table[group]) {
            if (entry.isEmpty())
                break;
            addWord(entry.toUpper().toUtf8(), kind);
        }
    }
}

void ColourTokenizer::addWord(const QByteArray &word, TextKind kind)
{
    if (word.size() > longestWord)
        return;
    if (word.size() == 1 && classOf(word.at(0)) == ByteClass::Punctuation) {
        m_punctuation[indexOf(word.at(0))] = kind;
    } else if (const qsizetype blank = word.indexOf(' '); blank >= 0) {
        m_phrases[word.left(blank)].push_back({word.mid(blank), kind});
    } else {
        m_words.insert(word, kind);
    }
}

ColourTokenizer::Token ColourTokenizer::next(const char *at, const char *end, State state) const
{
    if (state != Between)
        return inside(m_delimiters[static_cast<std::size_t>(state - 1)], state, at, at, end);
    if (const State opened = delimiterAt(at, end); opened != Between) {
        const Delimiter &delimiter = m_delimiters[static_cast<std::size_t>(opened - 1)];
        return inside(delimiter, opened, at, at + delimiter.begin.size(), end);
    }
    switch (classOf(*at)) {
    case ByteClass::Blank:
    case ByteClass::LineEnd:
        return token(TextKind::Blank, at, std::find_if_not(at, end, [](char byte) {
                         return classOf(byte) == ByteClass::Blank ||
                                classOf(byte) == ByteClass::LineEnd;
                     }));
    case ByteClass::Digit:
        return number(at, end);
    case ByteClass::Letter:
        return word(at, end);
    case ByteClass::Punctuation:
        break;
    }
    return token(m_punctuation[indexOf(*at)], at, at + 1);
}

/// The stretch from @p at whose text inside the delimiter begins at @p from.
ColourTokenizer::Token ColourTokenizer::inside(const Delimiter &delimiter, State state,
                                               const char *at, const char *from,
                                               const char *end) const
{
    if (!delimiter.end.isEmpty()) {
        const char *found = std::search(from, end, delimiter.end.begin(), delimiter.end.end(),
                                        [](char a, char b) { return upper(a) == upper(b); });
        if (found != end)
            return token(delimiter.kind, at, found + delimiter.end.size());
    }
    const bool closed = !delimiter.spansLines && end[-1] == '\n';
    return {delimiter.kind, end - at, closed ? Between : state};
}

ColourTokenizer::Token ColourTokenizer::word(const char *at, const char *end) const
{
    const char *past = std::find_if_not(at, end, isWordByte);
    if (past - at > longestWord)
        return token(TextKind::Name, at, past);
    std::array<char, longestWord> letters;
    std::transform(at, past, letters.begin(), upper);
    const auto key = QByteArray::fromRawData(letters.data(), past - at);
    if (!m_phrases.isEmpty()) {
        if (const auto phrases = m_phrases.constFind(key); phrases != m_phrases.constEnd()) {
            for (const Phrase &phrase : *phrases) {
                const char *phraseEnd = past + phrase.rest.size();
                if (startsWith(past, end, phrase.rest) &&
                    (phraseEnd == end || !isWordByte(*phraseEnd)))
                    return token(phrase.kind, at, phraseEnd);
            }
        }
    }
    return token(m_words.value(key, TextKind::Name), at, past);
}

ColourTokenizer::Token ColourTokenizer::number(const char *at, const char *end) const
{
    const auto isDigit = [](char byte) { return classOf(byte) == ByteClass::Digit; };
    const char *past = std::find_if_not(at, end, isDigit);
    if (past != end && *past == '.')
        past = std::find_if_not(past + 1, end, isDigit);
    if (past != end && upper(*past) == 'E') {
        const char *exponent = past + 1;
        if (exponent != end && (*exponent == '+' || *exponent == '-'))
            ++exponent;
        if (exponent != end && isDigit(*exponent))
            past = std::find_if_not(exponent, end, isDigit);
    }
    return token(TextKind::Number, at, past);
}

ColourTokenizer::State ColourTokenizer::delimiterAt(const char *at, const char *end) const
{
    for (const State state : m_delimitersByByte[indexOf(*at)]) {
        if (startsWith(at, end, m_delimiters[static_cast<std::size_t>(state - 1)].begin))
            return state;
    }
    return Between;
}
