#include "sqltext/SqlTokenizer.h"
#include "sqltext/SyntaxDefinition.h"
#include "sqltext/textFile.h"

#include "platform/RuntimeError.h"
#include "support/raisedError.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

SyntaxDefinition shippedDefinition()
{
    const QString path = QCoreApplication::applicationDirPath() + u"/../app/T-SQL.bcp"_s;
    return parseSyntaxDefinition(QString::fromUtf8(readWholeFile(path)));
}

/// One letter a byte: what kind of text it is.
QString kinds(const SqlTokenizer &tokenizer, const QByteArray &text)
{
    static const QHash<TextKind, QChar> letterOf{
        {TextKind::Name, u'n'},    {TextKind::Blank, u'_'},      {TextKind::Comment, u'c'},
        {TextKind::Literal, u'l'}, {TextKind::Number, u'#'},     {TextKind::Operator, u'+'},
        {TextKind::Class1, u't'},  {TextKind::QuotedName, u'q'}, {TextKind::Class6, u'k'}};
    QString result;
    SqlTokenizer::State state = SqlTokenizer::Between;
    for (qsizetype begin = 0; begin < text.size();) {
        const qsizetype lineFeed = text.indexOf('\n', begin);
        const qsizetype end = lineFeed < 0 ? text.size() : lineFeed + 1;
        while (begin < end) {
            const auto token =
                tokenizer.next(text.constData() + begin, text.constData() + end, state);
            result += QString(token.length, letterOf.value(token.kind, u'?'));
            begin += token.length;
            state = token.state;
        }
    }
    return result;
}

} // namespace

/// The syntax definition's reader, and the cutting of text by what it says.
class tst_SyntaxDefinition : public QObject
{
    Q_OBJECT
private slots:
    void shippedFileIsOne();
    void refused_data();
    void refused();
    void cutsText_data();
    void cutsText();
    void anythingIsCutToItsEnd();
};

void tst_SyntaxDefinition::shippedFileIsOne()
{
    const SyntaxDefinition definition = shippedDefinition();
    QCOMPARE(definition.name, u"T-SQL"_s);
    for (const TextKind kind : {TextKind::Comment, TextKind::Literal, TextKind::Number,
                                TextKind::Operator, TextKind::QuotedName})
        QVERIFY(definition.looks[static_cast<std::size_t>(kind)].has_value());
}

void tst_SyntaxDefinition::refused_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("line");

    QTest::newRow("empty") << u""_s << 1;
    QTest::newRow("notes only") << u"# a\n\n# b"_s << 3;
    QTest::newRow("no name first") << u"# a\nline-comment --"_s << 2;
    QTest::newRow("two names") << u"syntax a b"_s << 1;
    QTest::newRow("unknown keyword") << u"syntax a\n\ncolor x"_s << 3;
    QTest::newRow("missing end") << u"syntax a\nliteral '"_s << 2;
    QTest::newRow("no value") << u"syntax a\nline-comment"_s << 2;
    QTest::newRow("unknown kind") << u"syntax a\nlook keyword 0000FF"_s << 2;
    QTest::newRow("short colour") << u"syntax a\nlook comment 00FF"_s << 2;
    QTest::newRow("signed colour") << u"syntax a\nlook comment -00FF0"_s << 2;
    QTest::newRow("prefixed colour") << u"syntax a\nlook comment 0x00FF"_s << 2;
    QTest::newRow("no colour") << u"syntax a\nlook comment green1"_s << 2;
    QTest::newRow("unknown style") << u"syntax a\nlook comment 00FF00 huge"_s << 2;
    QTest::newRow("long mark") << u"syntax a\nline-comment "_s + QString(17, u'-') << 2;
    QTest::newRow("too many delimiters")
        << u"syntax a\n"_s + u"line-comment --\n"_s.repeated(65) << 66;
    QTest::newRow("binary") << QString::fromLatin1("\x7F"
                                                   "ELF\0\1\2\n\0\xFF",
                                                   10)
                            << 1;
}

void tst_SyntaxDefinition::refused()
{
    QFETCH(QString, text);
    QFETCH(int, line);
    try {
        parseSyntaxDefinition(text);
    } catch (const RuntimeError &error) {
        QCOMPARE(error.number, ErrorNumber::TypeMismatch);
        QVERIFY2(error.description.contains(u"line %1:"_s.arg(line)), error.what());
        return;
    }
    QFAIL("taken for a definition");
}

void tst_SyntaxDefinition::cutsText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");

    const auto row = [](const char *name, const QString &text, const QString &expected) {
        QTest::newRow(name) << text << expected;
    };
    row("query", u"select x from t;"_s, u"kkkkkk_n_kkkk_nk"_s);
    row("letter case", u"SeLeCt Date"_s, u"kkkkkk_tttt"_s);
    row("part of a word", u"selects date_x char2"_s, u"nnnnnnn_nnnnnn_nnnnn"_s);
    row("parentheses", u"f(1.5e-3)"_s, u"nk######k"_s);
    row("operators", u"a<=b||c"_s, u"n++n++n"_s);
    row("listed with a blank", u"java class"_s, u"kkkkkkkkkk"_s);
    row("the same with two", u"java  class"_s, u"kkkk__nnnnn"_s);
    row("the same in a longer word", u"java classes"_s, u"kkkk_nnnnnnn"_s);
    row("line comment", u"-- a 'b\nend"_s, u"cccccccckkk"_s);
    row("block comment", u"/* a\nif */if"_s, u"cccccccccckk"_s);
    row("open comment", u"a /* '"_s, u"n_cccc"_s);
    row("literal", u"'it''s'x"_s, u"llllllln"_s);
    row("literal over lines", u"'a\n-- b'in"_s, u"llllllllkk"_s);
    row("literal in a comment", u"--'\nx"_s, u"ccccn"_s);
    row("comment in a literal", u"'/*'in"_s, u"llllkk"_s);
    row("alternative literal", u"q'[it's]'in"_s, u"lllllllllkk"_s);
    row("the same in capitals", u"Q'{'}'in"_s, u"llllllkk"_s);
    row("a name that ends in q", u"xq'a'"_s, u"nnlll"_s);
    row("quoted name", u"\"a b\"in"_s, u"qqqqqkk"_s);
    row("quoted name ends with its line", u"\"a\nin"_s, u"qqqkk"_s);
    row("minus is no comment", u"a-b"_s, u"n+n"_s);
    row("letters beyond ASCII", u"é in"_s, u"nn_kk"_s);
}

void tst_SyntaxDefinition::cutsText()
{
    QFETCH(QString, text);
    SqlTokenizer tokenizer;
    tokenizer.setDefinition(shippedDefinition());
    tokenizer.setWordClasses(sqlWordClasses().keywordTable);
    QTEST(kinds(tokenizer, text.toUtf8()), "expected");
}

void tst_SyntaxDefinition::anythingIsCutToItsEnd()
{
    // Whatever the bytes and the definition: every stretch takes something and none too much.
    const auto definition = parseSyntaxDefinition(
        u"syntax x\nliteral a ba\nblock-comment aa ab\nline-comment b\nquoted-name é é"_s);
    SqlTokenizer tokenizer;
    tokenizer.setDefinition(definition);
    quint32 random = 1;
    for (int run = 0; run < 2000; ++run) {
        QByteArray text;
        for (int i = 0; i < 40; ++i) {
            random = random * 1664525U + 1013904223U;
            text += "ab\n\xC3\xA9 1\0"[(random >> 24) % 8];
        }
        QCOMPARE(kinds(tokenizer, text).size(), text.size());
    }
}

QTEST_GUILESS_MAIN(tst_SyntaxDefinition)
#include "tst_syntaxdefinition.moc"
