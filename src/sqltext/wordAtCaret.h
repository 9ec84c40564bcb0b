#pragma once

#include "sqltext/SyntaxDefinition.h"

#include <QString>
#include <QStringView>

/// Which word lies at the caret after a key has gone down, and to which class it belongs.

/// The kinds of keys that decide where the word to colour is looked for.
enum class KeyClass {
    Other = 0,
    Blank = 1,
    Tab = 2,
    OpenParenthesis = 3,
    CloseParenthesis = 4,
    Enter = 5,
    Backspace = 6,
    Delete = 7
};

/// The kind of a key that went down.
/// @param keyCode  Windows virtual-key code
/// @param shift    1 Shift + 2 Ctrl + 4 Alt
KeyClass keyClass(int keyCode, int shift);

/// A word of the text; @p start is 1-based. An empty word has length 0.
struct WordAtCaret
{
    QString word;
    int start = 1;
    int length = 0;
};

/// The word at the caret, bounded by blanks, tabs, line ends and parentheses.
/// @param caret  0-based position of the caret in @p text, after what the key has done
WordAtCaret wordAtCaret(QStringView text, int caret, KeyClass lastKey);

/// The class, 1 to 6, that lists @p word in any letter case; 0 when none does.
int keywordGroup(QStringView word, const KeywordTable &table);
