#include "dataaccess/text/SqlTokens.h"

#include <QRegularExpression>
#include <QStringView>

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

/// Words that stand alone, or before a parenthesis, as statements of their own.
constexpr QLatin1StringView statementWords =
    "abort analyze begin checkpoint commit declare delete end exit explain help insert "
    "merge null quit reindex replace return rollback savepoint select shutdown start table "
    "truncate update vacuum values with work"_L1;

/// Words that an ODBC escape begins with.
constexpr QLatin1StringView escapeWords = "call fn d t ts oj escape interval guid"_L1;

/// Whether @p text, which begins with a parenthesis, ends with the one that closes it.
bool isArgumentList(QStringView text)
{
    SqlTokens tokens(text);
    int depth = 0;
    for (SqlToken token = tokens.next(); token.kind != SqlToken::End; token = tokens.next()) {
        depth += token.isSign(u'(') ? 1 : token.isSign(u')') ? -1 : 0;
        if (depth == 0)
            return tokens.rest().isEmpty();
    }
    return false;
}

/// Whether what follows an opening brace makes it an escape's.
bool beginsEscape(SqlTokens tokens)
{
    SqlToken token = tokens.next();
    if (token.isSign(u'?') && tokens.next().isSign(u'='))
        token = tokens.next();
    return token.isOneOf(escapeWords);
}

QStringView withoutSurroundings(QStringView text)
{
    QStringView inner = text.trimmed();
    while (inner.endsWith(u';'))
        inner = inner.chopped(1).trimmed();
    return inner;
}

/// Whether a first name is followed by what can stand behind a procedure's: nothing, a point or a
/// parenthesis. That of nearly every statement is not, which makes this worth its while.
bool mayBeProcedure(QStringView text)
{
    if (text.startsWith(u'"'))
        return true;
    const auto *const nameEnd = std::find_if(
        text.begin(), text.end(), [](QChar c) { return c.isSpace() || c == u'.' || c == u'('; });
    const QStringView rest = QStringView(nameEnd, text.end()).trimmed();
    return rest.isEmpty() || rest.front() == u'.' || rest.front() == u'(';
}

} // namespace

QString asProcedureCall(const QString &commandText)
{
    static const QRegularExpression reference(
        uR"(\A((?:[\p{L}_][\p{L}\p{N}_$#]*|"[^"]+")(\.(?:[\p{L}_][\p{L}\p{N}_$#]*|"[^"]+")){0,2})\s*(?=\z|\())"_s);
    const QStringView inner = withoutSurroundings(commandText);
    if (!mayBeProcedure(inner))
        return commandText;
    const QString text = inner.toString();
    const QRegularExpressionMatch match = reference.match(text);
    if (!match.hasMatch())
        return commandText;
    const bool isQualified = match.hasCaptured(2);
    if (!isQualified && isOneOf(match.capturedView(1), statementWords))
        return commandText;
    const QStringView arguments = QStringView(text).mid(match.capturedEnd(0));
    if (!arguments.isEmpty() && !isArgumentList(arguments))
        return commandText;
    return u"{call "_s + text + u'}';
}

bool hasOdbcEscape(const QString &text)
{
    if (!text.contains(u'{'))
        return false;
    SqlTokens tokens(text);
    for (SqlToken token = tokens.next(); token.kind != SqlToken::End; token = tokens.next()) {
        if (token.isSign(u'{') && beginsEscape(tokens))
            return true;
    }
    return false;
}
