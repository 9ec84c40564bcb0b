#include "sqltext/sqlFilters.h"
#include "support/LiteralCommentFilter.h"

#include <QRandomGenerator>
#include <QTest>

using namespace Qt::StringLiterals;

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

} // namespace

class tst_SqlFilters : public QObject
{
    Q_OBJECT

private slots:
    void comments_data();
    void comments();
    void commentsOfRandomTexts_data();
    void commentsOfRandomTexts();
    void commentsInLargeTexts_data();
    void commentsInLargeTexts();
    void dmlStatements_data();
    void dmlStatements();
    void quotes();
    void lineFeeds();
    void words_data();
    void words();
};

void tst_SqlFilters::comments_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("stripped");
    const auto row = [](const char *name, const QString &text, const QString &stripped) {
        QTest::newRow(name) << text << stripped;
    };
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
    QTEST(LiteralCommentFilter(text).filtered(), "stripped");
}

void tst_SqlFilters::commentsOfRandomTexts_data()
{
    QTest::addColumn<int>("texts");
    QTest::addColumn<int>("longest");
    QTest::newRow("short") << 300'000 << 24;
    QTest::newRow("longer") << 5'000 << 300;
    QTest::newRow("long") << 40 << 5'000;
}

void tst_SqlFilters::commentsOfRandomTexts()
{
    QFETCH(int, texts);
    QFETCH(int, longest);
    QRandomGenerator random(20240305);
    for (int i = 0; i < texts; ++i) {
        const QString text = randomText(random, random.bounded(longest + 1));
        if (stripComments(text) != LiteralCommentFilter(text).filtered())
            QCOMPARE(stripComments(text), LiteralCommentFilter(text).filtered());
    }
}

// A search that starts over for every comment would take hours on these.
void tst_SqlFilters::commentsInLargeTexts_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("stripped");
    QTest::newRow("pairs") << u"a --b\r\n"_s << u"a \n"_s;
    QTest::newRow("line feeds alone") << u"a --b\n"_s << u"a "_s;
    QTest::newRow("open blocks") << u"/* --b\n"_s << u"/* "_s;
    QTest::newRow("closed blocks") << u"/*--*/"_s << u"/*--*/"_s;
    QTest::newRow("literals") << u"\n'--'"_s << u"\n'--'"_s;
    QTest::newRow("quotes on two lines") << u"'--\r\n"_s << u"'\n"_s;
}

void tst_SqlFilters::commentsInLargeTexts()
{
    QFETCH(QString, line);
    QFETCH(QString, stripped);
    constexpr int lines = 1'000'000;
    const QString result = stripComments(line.repeated(lines));
    QCOMPARE(result.size(), stripped.size() * lines);
    QCOMPARE(result.last(stripped.size()), stripped);
}

void tst_SqlFilters::dmlStatements_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("dml");
    const auto row = [](const char *text, bool dml) {
        QTest::newRow(text) << QString::fromUtf8(text) << dml;
    };
    row("", false);
    row("INSERT", true);
    row("insert into t values (1)", true);
    row(" \r\n insert into t values (1)", true);
    row("i n s\re\nr\r\nt", true);
    row("DELETE FROM t", true);
    row("create table t (a number)", true);
    row("UPDATED_ROWS", true);
    row("Update t set a = 1", true);
    row("updat", false);
    row("\tINSERT into t", false);
    row("select 1 from dual", false);
    row("merge into t", false);
    row("alter table t", false);
    row("begin insert into t values (1); end;", false);
    row("/* c */ insert", false);
}

void tst_SqlFilters::dmlStatements()
{
    QFETCH(QString, text);
    QTEST(isDmlStatement(text), "dml");
}

void tst_SqlFilters::quotes()
{
    QCOMPARE(doubleQuotes(u""_s), u""_s);
    QCOMPARE(doubleQuotes(u"it's"_s), u"it''s"_s);
    QCOMPARE(doubleQuotes(u"''"_s), u"''''"_s);
    QCOMPARE(doubleQuotes(u"'a' \"b\""_s), u"''a'' \"b\""_s);
}

void tst_SqlFilters::lineFeeds()
{
    QCOMPARE(lineFeedsOnly(u""_s), u""_s);
    QCOMPARE(lineFeedsOnly(u"\r\na\r\r\nb\rc\nd\r\n"_s), u"\na\r\nb\rc\nd\n"_s);
}

void tst_SqlFilters::words_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("keyword");
    QTest::addColumn<QString>("word");
    const auto row = [](const char *text, const char *keyword, const char *word) {
        QTest::newRow(text) << QString::fromUtf8(text) << QString::fromUtf8(keyword)
                            << QString::fromUtf8(word);
    };
    row("insert into emp(a) values (1)", "INTO", "emp");
    row("select * from emp", "FROM", "");
    row("select * from emp\n", "FROM", "emp");
    row("select * From \t\r\n--/*( scott.emp), x", "FROM", "scott.emp),");
    row("a from from b ", "FROM", "from");
    row("a from, b ", "FROM", "");
    row("from/b*", "FROM", "b");
    row("x y ", "FROM", "");
    row("", "FROM", "");
    row("from a ", "from", "");
    row(" a ", "", "a");
}

void tst_SqlFilters::words()
{
    QFETCH(QString, text);
    QFETCH(QString, keyword);
    QTEST(wordAfter(text, keyword), "word");
}

QTEST_GUILESS_MAIN(tst_SqlFilters)
#include "tst_sqlfilters.moc"
