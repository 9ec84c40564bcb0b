#pragma once

#include <QString>

#include <array>

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
