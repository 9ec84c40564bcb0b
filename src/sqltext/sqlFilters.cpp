#include "sqltext/sqlFilters.h"

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

// The two replacements below are written out because QString::replace moves the rest of the text
// for every thousand finds, which tells on scripts of some megabytes.

QString doubleQuotes(const QString &text)
{
    const qsizetype count = text.count(u'\'');
    if (count == 0)
        return text;
    const QStringView view(text);
    QString result;
    result.reserve(text.size() + count);
    qsizetype from = 0;
    for (Occurrences quotes(view, u"'"); quotes.current() != Occurrences::none; quotes.advance()) {
        result.append(view.sliced(from, quotes.current() + 1 - from)).append(u'\'');
        from = quotes.current() + 1;
    }
    return result.append(view.sliced(from));
}

QString lineFeedsOnly(const QString &text)
{
    const QStringView view(text);
    Occurrences pairs(view, u"\r\n");
    if (pairs.current() == Occurrences::none)
        return text;
    QString result;
    result.reserve(text.size());
    qsizetype from = 0;
    for (; pairs.current() != Occurrences::none; pairs.advance()) {
        result.append(view.sliced(from, pairs.current() - from));
        from = pairs.current() + 1;
    }
    return result.append(view.sliced(from));
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
