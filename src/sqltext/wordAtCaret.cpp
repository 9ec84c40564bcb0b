#include "sqltext/wordAtCaret.h"

#include <algorithm>

namespace {

constexpr int shiftAlone = 1;

bool isSeparator(QChar character)
{
    return QStringView(u"\r\n\t ()").contains(character);
}

} // namespace

KeyClass keyClass(int keyCode, int shift)
{
    switch (keyCode) {
    case 32:
        return KeyClass::Blank;
    case 9:
        return KeyClass::Tab;
    case '9':
        return shift == shiftAlone ? KeyClass::OpenParenthesis : KeyClass::Other;
    case '0':
        return shift == shiftAlone ? KeyClass::CloseParenthesis : KeyClass::Other;
    case 13:
        return KeyClass::Enter;
    case 8:
        return KeyClass::Backspace;
    case 46:
        return KeyClass::Delete;
    default:
        return KeyClass::Other;
    }
}

WordAtCaret wordAtCaret(QStringView text, int caret, KeyClass lastKey)
{
    // Positions count from 1 here; 0 is the place before the text.
    const auto size = static_cast<int>(text.size());
    // The kinds that are told apart have just put in or taken out the character before the caret.
    const int offset = lastKey == KeyClass::Other ? 0 : 1;
    const int from = std::max(1, caret + 1 - offset);
    int end = from;
    while (end <= size && !isSeparator(text[end - 1]))
        ++end;
    end = std::min(end, size + 1);
    int before = end - 1;
    while (before > 0 && !isSeparator(text[before - 1]))
        --before;

    WordAtCaret found;
    found.start = before + 1;
    found.length = end - 1 - before;
    found.word = text.mid(before, found.length).toString();
    return found;
}

int keywordGroup(QStringView word, const KeywordTable &table)
{
    const QString upper = word.toString().toUpper();
    for (std::size_t group = 1; group < table.size(); ++group) {
        const auto &words = table[group];
        const auto end = std::find_if(words.begin(), words.end(),
                                      [](const QString &entry) { return entry.isEmpty(); });
        if (std::find(words.begin(), end, upper) != end)
            return static_cast<int>(group);
    }
    return 0;
}
