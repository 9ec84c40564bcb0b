// The script splitter and the edits of statements: every statement of a script is sent once, whole
// and in order.

#include "platform/RuntimeError.h"
#include "platform/textForms.h"
#include "sqltext/scriptRunner.h"
#include "sqltext/sqlTexts.h"
#include "support/fuzzing.h"
#include "support/literallyStripped.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// What a server takes for the statement in a block: the block without its frame, quotes single.
QString statementIn(const QString &block, QLatin1StringView begin, QLatin1StringView end)
{
    require(block.startsWith(begin) && block.endsWith(end), "a block stands in its frame");
    QString statement = block.sliced(begin.size()).chopped(end.size());
    const qsizetype quotes = statement.count(u'\'');
    statement.replace("''"_L1, "'"_L1);
    require(quotes == 2 * statement.count(u'\''), "a literal's quotes are double");
    return statement;
}

bool holdsStatement(const QString &piece)
{
    const QString rest = trimBlanks(literallyStripped(piece));
    return std::any_of(rest.begin(), rest.end(), [](QChar c) { return c != u'\r' && c != u'\n'; });
}

void checkScript(const QString &script)
{
    QStringList expected;
    QString expectedErrors;
    const auto fails = [](const QString &statement) { return statement.size() % 2 != 0; };
    const QStringList pieces = script.split(u';');
    for (const QString &piece : pieces.first(pieces.size() - 1)) {
        if (!holdsStatement(piece))
            continue;
        expected.append(QString(piece).replace("\r\n"_L1, "\n"_L1));
        if (fails(expected.last()))
            expectedErrors += u' ' + expected.last() + u"\r\n"_s;
    }
    QStringList sent;
    QString errors;
    runScript(script, errors, [&](const QString &block, QStringView) {
        sent.append(statementIn(block, "Begin \r\nexecute immediate ('"_L1, "');\r\nend;"_L1));
        if (fails(sent.last()))
            throw RuntimeError(ErrorNumber::ProviderFailed, sent.last());
    });
    require(sent == expected, "what is sent is the script's statements");
    requireEqual(errors, expectedErrors, "each failure is told once");
}

void checkStatement(const QString &text)
{
    const QString significant = QString(text).remove(u'\r').remove(u'\n').remove(u' ');
    const QStringList verbs{u"CREATE"_s, u"INSERT"_s, u"UPDATE"_s, u"DELETE"_s};
    require(isDmlStatement(text) == verbs.contains(significant.left(6).toUpper()),
            "a statement is told by its first six letters");
    requireEqual(statementIn(dmlBlock(text), "begin \r\n execute immediate '"_L1, "'; end;"_L1),
                 QString(text).replace("\r\n"_L1, "\n"_L1), "a block holds its statement");
    const QString word = wordAfter(text, u"FROM"_s);
    require(text.contains(word) && !word.contains(u' '), "a word is one of the text");
    requireEqual(uncommentText(commentLines(text)), uncommentText(text),
                 "commenting lines adds nothing but dashes");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QString text = textOf(data, size);
    checkScript(text);
    checkStatement(text);
    return 0;
}
