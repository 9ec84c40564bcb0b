#include "sqltext/ColourTokenizer.h"
#include "support/coreTest.h"

#include "platform/files.h"

namespace {

SyntaxDefinition shippedDefinition()
{
    const QString path = QCoreApplication::applicationDirPath() + u"/../app/T-SQL.bcp"_s;
    return parseSyntaxDefinition(QString::fromUtf8(FileReader(path).readAll()));
}

/// One letter a byte: what kind of text it is.
QString kinds(const ColourTokenizer &tokenizer, const QByteArray &text)
{
    static const QHash<TextKind, QChar> letterOf{
        {TextKind::Name, u'n'},    {TextKind::Blank, u'_'},      {TextKind::Comment, u'c'},
        {TextKind::Literal, u'l'}, {TextKind::Number, u'#'},     {TextKind::Operator, u'+'},
        {TextKind::Class1, u't'},  {TextKind::QuotedName, u'q'}, {TextKind::Class6, u'k'}};
    QString result;
    ColourTokenizer::State state = ColourTokenizer::Between;
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

QString kindsInShippedDefinition(const QString &text)
{
    ColourTokenizer tokenizer;
    tokenizer.setDefinition(shippedDefinition());
    tokenizer.setWordClasses(sqlWordClasses().keywordTable);
    return kinds(tokenizer, text.toUtf8());
}

/// The line that a definition is refused for.
QString refusedLine(const QString &definition)
{
    const RuntimeError error = raised([&] { parseSyntaxDefinition(definition); });
    return error.number == ErrorNumber::TypeMismatch
               ? error.description.section(u"line "_s, 1).section(u':', 0, 0)
               : error.description;
}

} // namespace

/// The syntax definition's reader, and the cutting of text by what it says.
class tst_SyntaxDefinition : public QObject
{
    Q_OBJECT
private slots:
    void shippedFileIsOne();
    void texts_data();
    void texts() { compareTextRow(); }
    void anythingIsCutToItsEnd();
};

void tst_SyntaxDefinition::shippedFileIsOne()
{
    const SyntaxDefinition definition = shippedDefinition();
    QCOMPARE(definition.name, u"T-SQL"_s);
    for (const TextKind kind : {TextKind::Comment, TextKind::Literal, TextKind::Number,
                                TextKind::Operator, TextKind::QuotedName})
        QVERIFY(definition.looks[static_cast<std::size_t>(kind)].has_value());
    QCOMPARE(kindsInShippedDefinition(u"a<=b||c"_s), u"n++n++n"_s);
}

void tst_SyntaxDefinition::texts_data()
{
    addTextColumns();
    addTextRows("refused", refusedLine,
                u"|syntax a b→1|# a\nline-comment --→2|# a\n\n# b|syntax a\n\ncolor x→3|"
                "syntax a\nliteral '|syntax a\nline-comment|syntax a\nlook keyword 0000FF|"
                "syntax a\nlook comment 00FF|syntax a\nlook comment -00FF0|"
                "syntax a\nlook comment 0x00FF|syntax a\nlook comment green1|"
                "syntax a\nlook comment 00FF00 huge|"
                "syntax a\nline-comment 12345678901234567→2|\u007FELF\0\1\2\n\0\u00FF→1"_s);
    // One delimiter too many.
    addTextRows("refused", refusedLine,
                u"syntax a\n"_s + u"line-comment --\n"_s.repeated(65) + u"→66"_s);
    addTextRows(
        "words", kindsInShippedDefinition,
        u"select x from t;→kkkkkk_n_kkkk_nk|SeLeCt Date→kkkkkk_tttt|"
        "selects date_x char2→nnnnnnn_nnnnnn_nnnnn|f(1.5e-3)→nk######k|a-b→n+n|"
        "java class→kkkkkkkkkk|java  class→kkkk__nnnnn|java classes→kkkk_nnnnnnn|é in→nn_kk"_s);
    addTextRows("comments and literals", kindsInShippedDefinition,
                u"-- a 'b\nend→cccccccckkk|/* a\nif */if→cccccccccckk|a /* '→n_cccc|"
                "'it''s'x→llllllln|'a\n-- b'in→llllllllkk|--'\nx→ccccn|'/*'in→llllkk|"
                "q'[it's]'in→lllllllllkk|Q'{'}'in→llllllkk|xq'a'→nnlll|"
                "\"a b\"in→qqqqqkk|\"a\nin→qqqkk"_s);
}

// Any definition is taken or refused by its line, and what is taken cuts any bytes to their end:
// every stretch takes something and none too much.
void tst_SyntaxDefinition::anythingIsCutToItsEnd()
{
    // The first four begin a line of a definition.
    static const QByteArrayList pieces = "literal |quoted-name |line-comment |block-comment |look "
                                         "|a|ba|\xC3\xA9| |comment |00FF00|1|"
                                         "\n|\n|\0"_ba.split('|');
    QRandomGenerator random(20240305);
    const auto randomBytes = [&](int most) {
        QByteArray bytes;
        for (int count = random.bounded(most); count > 0; --count)
            bytes += pieces[random.bounded(int(pieces.size()))];
        return bytes;
    };
    ColourTokenizer tokenizer;
    int taken = 0;
    for (int run = 0; run < 20'000; ++run) {
        QByteArray text = "syntax x\nliteral a b\n";
        for (int line = random.bounded(3); line > 0; --line)
            text += pieces[random.bounded(4)] + randomBytes(5) + '\n';
        const RuntimeError error = raised(
            [&] { tokenizer.setDefinition(parseSyntaxDefinition(QString::fromUtf8(text))); });
        if (error.number != 0)
            QVERIFY(error.number == ErrorNumber::TypeMismatch &&
                    error.description.contains(u", line "_s));
        taken += error.number == 0;
        const QByteArray bytes = randomBytes(40);
        if (taken > 0)
            QCOMPARE(kinds(tokenizer, bytes).size(), bytes.size());
    }
    QVERIFY(taken > 1000 && taken < 19'000);
}

QTEST_GUILESS_MAIN(tst_SyntaxDefinition)
#include "tst_syntaxdefinition.moc"
