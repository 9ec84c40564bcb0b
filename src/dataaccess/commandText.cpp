#include "dataaccess/commandText.h"

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

constexpr qsizetype longestEscapeStart = 64;

bool isStatementWord(QStringView word)
{
    return std::any_of(std::begin(statementWords), std::end(statementWords), [&](auto statement) {
        return word.compare(statement, Qt::CaseInsensitive) == 0;
    });
}

/// Where the literal, quoted name or comment that begins at @p from ends; @p from itself when none
/// begins there.
qsizetype skipOpaque(QStringView text, qsizetype from)
{
    const auto after = [&](QStringView end, qsizetype start) {
        const qsizetype found = text.indexOf(end, start);
        return found < 0 ? text.size() : found + end.size();
    };
    const QChar c = text[from];
    if (c == u'\'' || c == u'"' || c == u'`')
        return after(text.mid(from, 1), from + 1);
    if (text.mid(from, 2) == "--"_L1)
        return after(u"\n", from + 2);
    if (text.mid(from, 2) == "/*"_L1)
        return after(u"*/", from + 2);
    return from;
}

/// Whether @p text, which begins with a parenthesis, ends with the one that closes it.
bool isArgumentList(QStringView text)
{
    int depth = 0;
    for (qsizetype i = 0; i < text.size();) {
        if (const qsizetype end = skipOpaque(text, i); end > i) {
            i = end;
            continue;
        }
        depth += text[i] == u'(' ? 1 : text[i] == u')' ? -1 : 0;
        ++i;
        if (depth == 0)
            return i == text.size();
    }
    return false;
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
    if (!isQualified && isStatementWord(match.capturedView(1)))
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
    static const QRegularExpression escape(
        uR"(\A\{\s*(\?\s*=\s*)?(call|fn|d|t|ts|oj|escape|interval|guid)\b)"_s,
        QRegularExpression::CaseInsensitiveOption);
    const QStringView view(text);
    for (qsizetype i = 0; i < view.size();) {
        if (const qsizetype end = skipOpaque(view, i); end > i) {
            i = end;
            continue;
        }
        if (view[i] == u'{' && escape.match(text.mid(i, longestEscapeStart)).hasMatch())
            return true;
        ++i;
    }
    return false;
}
