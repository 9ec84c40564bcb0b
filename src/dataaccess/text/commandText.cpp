#include "dataaccess/text/commandText.h"

#include "dataaccess/text/SqlTokens.h"

#include <QRegularExpression>
#include <QStringView>

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

/// Words that stand alone, or before a parenthesis, as statements of their own.
constexpr QLatin1StringView statementWords[] = {
    "abort"_L1,    "analyze"_L1,   "begin"_L1,  "checkpoint"_L1, "commit"_L1,  "declare"_L1,
    "delete"_L1,   "end"_L1,       "exit"_L1,   "explain"_L1,    "help"_L1,    "insert"_L1,
    "merge"_L1,    "null"_L1,      "quit"_L1,   "reindex"_L1,    "replace"_L1, "return"_L1,
    "rollback"_L1, "savepoint"_L1, "select"_L1, "shutdown"_L1,   "start"_L1,   "table"_L1,
    "truncate"_L1, "update"_L1,    "vacuum"_L1, "values"_L1,     "with"_L1,    "work"_L1,
};

/// Words that an ODBC escape begins with.
constexpr QLatin1StringView escapeWords[] = {
    "call"_L1, "fn"_L1, "d"_L1, "t"_L1, "ts"_L1, "oj"_L1, "escape"_L1, "interval"_L1, "guid"_L1,
};

template <size_t Count>
bool isOneOf(QStringView word, const QLatin1StringView (&words)[Count])
{
    return std::any_of(std::begin(words), std::end(words), [&](QLatin1StringView other) {
        return word.compare(other, Qt::CaseInsensitive) == 0;
    });
}

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
    return token.kind == SqlToken::Word && isOneOf(token.text, escapeWords);
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
