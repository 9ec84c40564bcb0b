#include "sqltext/sqlTexts.h"
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
    void commentsOfRandomTexts();
    void texts_data();
    void texts() { compareTextRow(); }
    void groupEndsAtItsFirstEmptyEntry();
};

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
    const QString comments =
        u"→|select 'a' /* b */\r\nfrom dual→select 'a' /* b */\r\nfrom dual|select 1 from dual -- "
        u"note→select 1 from dual |"
        // Line ends: a pair keeps its line feed, and counts before others that are nearer.
        "select 1\r\n-- c\r\nfrom dual→select 1\r\n\nfrom dual|a -- c\nb|a -- c\rb→a b|"
        "a -- c\nb\nc\r\nd→a \nd|a -- c\nb\rc→a c|"
        // Block comments, paired by index.
        "/* -- */ x→/* -- */ x|/* a */ x -- y→/* a */ x |/* a -- b→/* a |*/ /* -- b */→*/ /* |"
        "/* /* -- */ -- */ -- x→/* /* -- */ -- */ |"
        // Quotes, of which those on the first line do not count.
        "select '--' from dual→select '|\nx = 'a--b' y→\nx = 'aa--b' y|"
        "\n'a' -- 'b' c→\n'a'  -- 'b' c|\n'a --\nb' c→\n'a b' c|\n'--' --x→\n'--' |"
        "\n'--' '--'→\n'--' '--'|\n'a--b'\n→\n'aa--b'\n|a --- b→a "_s;
    addTextRows("comments", stripComments, comments);
    addTextRows("comments, literally", literallyStripped, comments);
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
    // The plan table takes 30 characters.
    const QDateTime longest(QDate(2026, 12, 31), QTime(23, 59, 58));
    addTextRows(
        "statement id", [=](const QString &user) { return explainStatementId(user, longest); },
        u"averylongusername→averylong12/31/2026 23:59:58|scott→scott12/31/2026 23:59:58"_s);
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
