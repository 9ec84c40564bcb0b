#include "sqltext/sqlTexts.h"

#include "sqltext/CommentFilter.h"
#include "sqltext/Occurrences.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool endsWord(QChar c)
{
    return QStringView(u"\t\r\n -/*(").contains(c);
}

} // namespace

QString stripComments(const QString &text)
{
    return text.contains("--"_L1) ? CommentFilter(text).filtered() : text;
}

bool isDmlStatement(const QString &text)
{
    constexpr qsizetype wordLength = 6;
    QString word;
    for (const QChar c : text) {
        if (c == u'\r' || c == u'\n' || c == u' ')
            continue;
        word += c;
        if (word.size() == wordLength)
            break;
    }
    word = word.toUpper();
    return word == "CREATE"_L1 || word == "INSERT"_L1 || word == "UPDATE"_L1 || word == "DELETE"_L1;
}

QString doubleQuotes(const QString &text)
{
    return withExchanged(text, u"'", u"''");
}

QString lineFeedsOnly(const QString &text)
{
    return withExchanged(text, u"\r\n", u"\n");
}

QString wordAfter(const QString &text, const QString &keyword)
{
    bool keywordBefore = keyword.isEmpty();
    auto wordStart = text.begin();
    for (;;) {
        const auto wordEnd = std::find_if(wordStart, text.end(), endsWord);
        if (wordEnd == text.end())
            return {};
        const QStringView word(wordStart, wordEnd);
        if (keywordBefore && !word.isEmpty())
            return word.toString();
        // Further separators behind the keyword leave it the word before.
        keywordBefore = keywordBefore || word.toString().toUpper() == keyword;
        wordStart = wordEnd + 1;
    }
}
