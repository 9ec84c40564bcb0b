#include "sqltext/outcomeTexts.h"

#include "platform/RuntimeError.h"
#include "sqltext/openWork.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString counted(qint64 count, const QString &thing)
{
    return QString::number(count) + u' ' + thing + (count == 1 ? u""_s : u"s"_s);
}

/// The number that @p pattern captures in @p text; 0 when it is not there.
int numberIn(const QString &text, const QString &pattern)
{
    const QRegularExpression expression(pattern, QRegularExpression::MultilineOption);
    return expression.match(text).captured(1).toInt();
}

int lineEndsBefore(const QString &statement)
{
    const auto first =
        std::find_if_not(statement.begin(), statement.end(), [](QChar c) { return c.isSpace(); });
    return static_cast<int>(std::count(statement.begin(), first, u'\n'));
}

} // namespace

QString statementText(const QString &statement, qint64 rowsChanged)
{
    if (statement.isEmpty())
        return u"Nothing to run"_s;
    switch (statementKind(statement)) {
    case StatementKind::RowChange:
        if (rowsChanged < 0)
            return u"Executed"_s;
        return rowsChanged == 0 ? u"No rows changed"_s
                                : counted(rowsChanged, u"row"_s) + u" changed, not committed"_s;
    case StatementKind::Commit:
        return u"Committed"_s;
    case StatementKind::Rollback:
        return u"Rolled back"_s;
    default:
        return u"Executed; no rows to show"_s;
    }
}

QString rowsText(qint64 rows, bool hasMore)
{
    const QString count = counted(rows, u"row"_s);
    if (hasMore)
        return count + u"; more on the server: F7 next, Shift+F7 all"_s;
    if (rows == 0)
        return u"No rows"_s;
    return rows == 1 ? count : u"All "_s + count;
}

QString scriptText(qsizetype statements, qsizetype failed, int firstLine)
{
    if (statements == 0)
        return u"Script: no statements; each ends with ;"_s;
    const QString text = u"Script: "_s + counted(statements, u"statement"_s);
    return failed == 0 ? text
                       : text + u", %1 failed, first at line %2"_s.arg(failed).arg(firstLine);
}

QString planText(int steps)
{
    return steps == 0 ? u"No plan"_s : u"Plan of "_s + counted(steps, u"step"_s);
}

QString outputText(int lines)
{
    return lines == 0 ? u"No output"_s : counted(lines, u"line"_s) + u" of output"_s;
}

QString failureText(const RuntimeError &error)
{
    if (error.isCancelled)
        return u"Cancelled"_s;
    return u"Failed: "_s + error.description.section(u'\n', 0, 0).trimmed();
}

int failedLine(const QString &description, const QString &statement, bool isWrapped)
{
    int line = numberIn(description, u"ORA-06550: line (\\d+), column"_s);
    if (line == 0 && !isWrapped)
        line = numberIn(description, u"ORA-06512: at line (\\d+)"_s);
    if (line == 0) {
        line = numberIn(description, u"' at line (\\d+)$"_s);
        // MariaDB leaves the white space before a statement out of count.
        if (line > 0)
            line += lineEndsBefore(statement);
    }
    if (line > 0)
        return line <= statement.count(u'\n') + 1 ? line : 0;
    const int offset = numberIn(description, u"\\bat (?:character|position|offset) (\\d+)"_s);
    if (offset < 1 || offset > statement.size())
        return 0;
    return static_cast<int>(QStringView(statement).left(offset - 1).count(u'\n')) + 1;
}
