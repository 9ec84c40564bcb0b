#pragma once

#include <QByteArray>
#include <QString>

#include <array>
#include <optional>
#include <vector>

/// What a stretch of SQL text is. The members from Class1 on are the word classes.
enum class TextKind : quint8 {
    Name,
    Blank,
    Comment,
    Literal,
    Number,
    Operator,
    QuotedName,
    Class1,
    Class2,
    Class3,
    Class4,
    Class5,
    Class6
};
inline constexpr int textKindCount = 13;

/// A stretch of text between two marks.
struct Delimiter
{
    TextKind kind = TextKind::Comment;
    QByteArray begin;
    /// Empty: the stretch goes to the end of the line.
    QByteArray end;
    /// Whether it may go on over line ends; otherwise the line's end closes it as well.
    bool spansLines = false;
};

struct TextLook
{
    int colour = 0; ///< 0xRRGGBB
    bool bold = false;
    bool italic = false;
};

/// How comments, literals, numbers and operators are told from each other and how they look.
struct SyntaxDefinition
{
    QString name;
    std::vector<Delimiter> delimiters;
    /// By kind; none where the definition says nothing.
    std::array<std::optional<TextLook>, textKindCount> looks;

    /// More delimiters than this make no definition.
    static constexpr int mostDelimiters = 64;
    /// The same for the bytes of one mark.
    static constexpr int longestMark = 16;
};

/// Reads the text of a definition file.
/// @throws RuntimeError 13 naming the line that is wrong
SyntaxDefinition parseSyntaxDefinition(const QString &text);

/// The word lists that SQL text is coloured by, with their colours.

inline constexpr int wordClassCount = 7;
inline constexpr int wordsPerClass = 72;

/// Upper-case words by class; a class ends at its first empty entry. Class 0 is plain text and
/// has no words.
using KeywordTable = std::array<std::array<QString, wordsPerClass>, wordClassCount>;
/// Colour of each class as 0xRRGGBB.
using ClassColours = std::array<int, wordClassCount>;
/// How the words of a class are written, by class number: 1 as the rest of the text, 2 bold; 0
/// where nothing is said.
using ClassStyles = std::array<qint16, wordClassCount>;

struct WordClasses
{
    KeywordTable keywordTable;
    ClassColours classColours{};
    ClassStyles classStyles{};
};

/// The lists of Oracle's SQL: data types in class 1, keywords in class 6.
const WordClasses &sqlWordClasses();
