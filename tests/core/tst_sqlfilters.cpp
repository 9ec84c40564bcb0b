#include "sqltext/selectionEdits.h"
#include "sqltext/serverStatements.h"
#include "sqltext/sqlFilters.h"
#include "sqltext/wordAtCaret.h"
#include "support/coreTest.h"
#include "support/literallyStripped.h"

namespace {

/// A text of @p length pieces out of those that the comment filter reacts to.
QString randomText(QRandomGenerator &random, int length)
{
    static const QString pieces[] = {u"--"_s, u"-"_s, u"/*"_s, u"*/"_s,    u"/"_s,
                                     u"*"_s,  u"'"_s, u"'"_s,  u"\r\n"_s,  u"\r"_s,
                                     u"\n"_s, u"a"_s, u" "_s,  u"\u00e9"_s};
    // Some texts do without one of the line ends, as the rule for the end of a comment asks first
    // whether there are any.
    const bool pairs = random.bounded(2) == 0;
    const bool returns = random.bounded(2) == 0;
    QString text;
    for (int i = 0; i < length; ++i) {
        const QString &piece = pieces[random.bounded(int(std::size(pieces)))];
        if ((pairs || piece != u"\r\n"_s) && (returns || piece != u"\r"_s))
            text += piece;
    }
    return text;
}

/// What a function makes of each of a million such lines. One that starts over for every line, or
/// moves what comes after it, would take minutes to hours on them.
TextFunction onAMillionLines(const TextFunction &function)
{
    return [function](const QString &line) {
        constexpr qsizetype lines = 1'000'000;
        const QString result = function(line.repeated(lines));
        return result.size() % lines == 0 ? result.last(result.size() / lines) : u"uneven"_s;
    };
}

/// The class of a key, which is given as its code and the state of the modifiers.
QString classOfKey(const QString &key)
{
    const int number = static_cast<int>(
        keyClass(key.section(u' ', 0, 0).toInt(), key.section(u' ', 1, 1).toInt()));
    return QString::number(number);
}

/// The word at the caret, which stands where `^` does, or beyond a text without one, with its start
/// and length.
TextFunction wordAt(KeyClass lastKey)
{
    return [lastKey](QString text) {
        const auto caret = text.contains(u'^') ? static_cast<int>(text.indexOf(u'^')) : 99;
        const WordAtCaret found = wordAtCaret(text.remove(u'^'), caret, lastKey);
        return u"%1 %2 %3"_s.arg(found.word).arg(found.start).arg(found.length);
    };
}

QString groupOf(const QString &word)
{
    return QString::number(keywordGroup(word, sqlWordClasses().keywordTable));
}

} // namespace

/// Texts made of statements for the server and for the editor's selection, keys and words at the
/// caret.
class tst_SqlFilters : public QObject
{
    Q_OBJECT

private slots:
    void comments_data();
    void comments();
    void commentsOfRandomTexts();
    void texts_data();
    void texts() { compareTextRow(); }
    void statementIdFitsThePlanTable();
    void groupEndsAtItsFirstEmptyEntry();
};

void tst_SqlFilters::comments_data()
{
    const DataRows<QString, QString> row("text", "stripped");
    row("empty", u""_s, u""_s);
    row("no comment", u"select 'a' /* b */\r\nfrom dual"_s, u"select 'a' /* b */\r\nfrom dual"_s);
    row("to the end of the text", u"select 1 from dual -- note"_s, u"select 1 from dual "_s);
    row("pair keeps its line feed", u"select 1\r\n-- c\r\nfrom dual"_s,
        u"select 1\r\n\nfrom dual"_s);
    row("lone line feed goes", u"a -- c\nb"_s, u"a b"_s);
    row("lone carriage return goes", u"a -- c\rb"_s, u"a b"_s);
    row("a far pair counts before a near line feed", u"a -- c\nb\nc\r\nd"_s, u"a \nd"_s);
    row("a far return counts before a near line feed", u"a -- c\nb\rc"_s, u"a c"_s);
    row("block comment", u"/* -- */ x"_s, u"/* -- */ x"_s);
    row("behind a block comment", u"/* a */ x -- y"_s, u"/* a */ x "_s);
    row("block comment without end", u"/* a -- b"_s, u"/* a "_s);
    row("paired by index", u"*/ /* -- b */"_s, u"*/ /* "_s);
    row("nested openings", u"/* /* -- */ -- */ -- x"_s, u"/* /* -- */ -- */ "_s);
    row("quoted on the first line", u"select '--' from dual"_s, u"select '"_s);
    row("quoted on a later line", u"\nx = 'a--b' y"_s, u"\nx = 'aa--b' y"_s);
    row("between two literals", u"\n'a' -- 'b' c"_s, u"\n'a'  -- 'b' c"_s);
    row("quotes on two lines", u"\n'a --\nb' c"_s, u"\n'a b' c"_s);
    row("used pair ends a literal", u"\n'--' --x"_s, u"\n'--' "_s);
    row("two literals", u"\n'--' '--'"_s, u"\n'--' '--'"_s);
    row("odd dashes", u"a --- b"_s, u"a "_s);
    row("text ends with a line feed", u"\n'a--b'\n"_s, u"\n'aa--b'\n"_s);
}

void tst_SqlFilters::comments()
{
    QFETCH(QString, text);
    QTEST(stripComments(text), "stripped");
    QTEST(literallyStripped(text), "stripped");
}

void tst_SqlFilters::commentsOfRandomTexts()
{
    QRandomGenerator random(20240305);
    for (const auto &[texts, longest] : {std::pair{300'000, 24}, {5'000, 300}, {40, 5'000}}) {
        for (int i = 0; i < texts; ++i) {
            const QString text = randomText(random, random.bounded(longest + 1));
            if (stripComments(text) != literallyStripped(text))
                QCOMPARE(stripComments(text), literallyStripped(text));
        }
    }
}

void tst_SqlFilters::texts_data()
{
    addTextColumns();
    addTextRows("a million lines", onAMillionLines(stripComments),
                u"a --b\r\n→a \n|a --b\n→a |/* --b\n→/* |/*--*/→/*--*/|\n'--'→\n'--'|"
                "'--\r\n→'\n"_s);
    addTextRows(
        "DML", [](const QString &text) { return isDmlStatement(text) ? u"yes"_s : u"no"_s; },
        u"INSERT| \r\n insert into t values (1)|i n s\re\nr\r\nt|DELETE FROM t|"
        "create table t (a number)|UPDATED_ROWS|Update t set a = 1→yes|"
        "|updat|\tINSERT into t|select 1 from dual|merge into t|alter table t|"
        "begin insert into t values (1); end;|/* c */ insert→no"_s);
    addTextRows("doubled quotes", doubleQuotes, u"→|it's→it''s|''→''''|'a' \"b\"→''a'' \"b\""_s);
    addTextRows("line feeds", lineFeedsOnly, u"→|\r\na\r\r\nb\rc\nd\r\n→\na\r\nb\rc\nd\n"_s);
    addTextRows(
        "word after FROM", [](const QString &text) { return wordAfter(text, u"FROM"_s); },
        u"select * from emp\n→emp|select * From \t\r\n--/*( scott.emp), x→scott.emp),|"
        "a from from b →from|from/b*→b|select * from emp|a from, b |x y |→"_s);
    addTextRows(
        "word after a keyword in lower case",
        [](const QString &text) { return wordAfter(text, u"from"_s); }, u"from a →"_s);
    addTextRows(
        "first word", [](const QString &text) { return wordAfter(text, {}); }, u" a →a"_s);
    addTextRows("commented lines", commentLines,
                u"a\r\nb→--a\r\n--b|a\r\n→--a\r\n--|--a→----a|a\nb→--a\nb"_s);
    addTextRows("uncommented", uncommentText, u"x -- y→x  y|----a\r\n--b - c---d→a\r\nb - c-d"_s);
    // Letters that become two, and some that take two units of text.
    addTextRows("upper case of a million lines", onAMillionLines(upperCase), u"ß a𐐨ŉ→SS A𐐀ʼN"_s);
    addTextRows("lower case of a million lines", onAMillionLines(lowerCase), u"İ A𐐀x→i̇ a𐐨x"_s);
    addTextRows("a million commented lines",
                onAMillionLines([](const QString &text) { return commentLines(text).chopped(2); }),
                u"a\r\n→--a\r\n"_s);
    addTextRows("a million uncommented lines", onAMillionLines(uncommentText), u"--a - --→a - "_s);
    addTextRows("a million lines in a block", onAMillionLines([](const QString &text) {
                    return lineFeedsOnly(doubleQuotes(text));
                }),
                u"'a'\r\n→''a''\n"_s);
    addTextRows("key", classOfKey,
                u"32 0|32 7→1|9 1→2|57 1→3|48 1→4|13 2→5|8 0→6|46 0→7|"
                "57 0|57 3|48 5|56 1|0 1→0"_s);
    addTextRows("word", wordAt(KeyClass::Other),
                u"^→ 1 0|select^→select 1 6|a se^lect b|a ^select b→select 3 6|select ^→ 8 0|"
                "a\ti^n\tb→in 3 2|a\r\ni^n\r\nb→in 4 2|end;^→end; 1 4|a (^ b→ 4 0|abc→abc 1 3"_s);
    addTextRows("word after a blank", wordAt(KeyClass::Blank), u"^→ 1 0|select ^→select 1 6"_s);
    addTextRows("word after a parenthesis", wordAt(KeyClass::OpenParenthesis), u"x in(^→in 3 2"_s);
    // The first and the last word of each class among them.
    addTextRows("group", groupOf,
                u"SELECT|As|sElEcT|;|java class→6|varchar2|cursor→1|emp|SELEC|→0"_s);
}

void tst_SqlFilters::statementIdFitsThePlanTable()
{
    const QDateTime time(QDate(2026, 12, 31), QTime(23, 59, 58));
    const QString id = explainStatementId(u"averylongusername"_s, time);
    QCOMPARE(id, u"averylong12/31/2026 23:59:58"_s);
    QVERIFY(id.size() <= 30);
    QCOMPARE(explainStatementId(u"scott"_s, QDateTime(QDate(2026, 1, 2), QTime(0, 0))),
             u"scott1/2/2026"_s);
}

void tst_SqlFilters::groupEndsAtItsFirstEmptyEntry()
{
    KeywordTable table;
    table[0][0] = u"PLAIN"_s;
    table[2][0] = u"BOTH"_s;
    table[2][2] = u"HIDDEN"_s;
    table[4][0] = u"BOTH"_s;
    QCOMPARE(keywordGroup(u"both", table), 2);
    QCOMPARE(keywordGroup(u"hidden", table), 0);
    QCOMPARE(keywordGroup(u"plain", table), 0);
}

QTEST_GUILESS_MAIN(tst_SqlFilters)
#include "tst_sqlfilters.moc"
