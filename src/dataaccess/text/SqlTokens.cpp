#include "dataaccess/text/SqlTokens.h"

#include <QString>
#include <QStringTokenizer>

using namespace Qt::StringLiterals;

namespace {

qsizetype endOr(qsizetype found, qsizetype length, qsizetype otherwise)
{
    return found < 0 ? otherwise : found + length;
}

} // namespace

bool isWordCharacter(QChar character)
{
    return character.isLetterOrNumber() || character == u'_' || character == u'$' ||
           character == u'#' || character.isSurrogate();
}

bool isOneOf(QStringView word, QLatin1StringView words)
{
    for (const QLatin1StringView one : words.tokenize(u' ')) {
        if (word.compare(one, Qt::CaseInsensitive) == 0)
            return true;
    }
    return false;
}

bool SqlToken::isWord(QStringView word) const
{
    return kind == Word && text.compare(word, Qt::CaseInsensitive) == 0;
}

QString SqlToken::value() const
{
    if (kind != Literal && kind != QuotedName)
        return text.toString();
    const QChar quote = text.front();
    QStringView inner = text.sliced(1);
    if (inner.endsWith(quote))
        inner.chop(1);
    return inner.toString().replace(QString(2, quote), QString(quote));
}

SqlTokens::SqlTokens(QStringView text)
    : m_text(text)
{
}

SqlToken SqlTokens::next()
{
    skipToToken();
    const qsizetype start = m_position;
    if (start == m_text.size())
        return {};

    const QChar first = m_text[start];
    SqlToken::Kind kind = SqlToken::Sign;
    if (first == u'\'' || first == u'"' || first == u'`') {
        kind = first == u'\'' ? SqlToken::Literal : SqlToken::QuotedName;
        m_position = endOfQuoted(first);
    } else if (isWordCharacter(first)) {
        kind = SqlToken::Word;
        while (m_position < m_text.size() && isWordCharacter(m_text[m_position]))
            ++m_position;
    } else {
        ++m_position;
    }
    return {kind, m_text.sliced(start, m_position - start)};
}

void SqlTokens::skipToToken()
{
    while (m_position < m_text.size()) {
        const QStringView left = rest();
        if (left.front().isSpace())
            ++m_position;
        else if (left.startsWith(u"--"))
            m_position = endOr(m_text.indexOf(u'\n', m_position), 1, m_text.size());
        else if (left.startsWith(u"/*"))
            m_position = endOr(m_text.indexOf(u"*/"_s, m_position + 2), 2, m_text.size());
        else
            return;
    }
}

qsizetype SqlTokens::endOfQuoted(QChar quote) const
{
    qsizetype position = m_position + 1;
    while (true) {
        position = endOr(m_text.indexOf(quote, position), 1, m_text.size());
        if (position >= m_text.size() || m_text[position] != quote)
            return position;
        ++position; // a doubled quote stands for itself
    }
}
