#include "sqltext/dynamicStatements.h"
#include "sqltext/scriptRunner.h"
#include "support/coreTest.h"

using namespace Qt::StringLiterals;

namespace {

/// What stands within the blocks that @p script is sent in, separated by `~`.
QString sentPieces(const QString &script)
{
    const QString frame = scriptBlock(u"~"_s);
    QStringList sent;
    QString errors = u"kept"_s;
    runScript(script, errors, [&](const QString &command) {
        const QString piece = command.mid(frame.indexOf(u'~'), command.size() - frame.size() + 1);
        if (command == QString(frame).replace(u'~', piece))
            sent.append(piece);
    });
    return errors == u"kept"_s ? sent.join(u'~') : errors;
}

} // namespace

class tst_Scripts : public QObject
{
    Q_OBJECT

private slots:
    void texts_data();
    void texts() { compareTextRow(); }
    void failuresAreCollected();
    void largeScript();
};

void tst_Scripts::texts_data()
{
    addTextColumns();
    addTextRows(
        "block", dmlBlock,
        u" insert into t\r\nvalues ('a''b'); -- c\n→"
        "begin \r\n execute immediate ' insert into t\nvalues (''a''''b''); -- c\n'; end;"_s);
    addTextRows("block of a script", scriptBlock,
                u"\r\nupdate t\rset c = ''→"
                "Begin \r\nexecute immediate ('\nupdate t\rset c = ''''');\r\nend;"_s);
    addTextRows("script", sentPieces,
                // Without an end, or with nothing before it.
                u"|   |drop table x|-- only a comment;→|; ;\r\n;\n -- x\n;;→|"
                "drop table x; create table x (a number)→drop table x|a;\r\nb;\r\n→a~\nb|"
                // Literals hold no end back, and comments are not statements, blocks of them are.
                "insert into t values ('a;b');→insert into t values (''a~b'')|-- c\r\nb;→-- c\nb|"
                "\t;→\t|/* c */;→/* c */"_s);
}

void tst_Scripts::failuresAreCollected()
{
    int sent = 0;
    QString errors;
    runScript(u"a;b;c;"_s, errors, [&](const QString &) {
        if (++sent != 2)
            throw RuntimeError(ErrorNumber::ProviderFailed, u"failure %1"_s.arg(sent));
    });
    QCOMPARE(sent, 3);
    QCOMPARE(errors, u" failure 1\r\n failure 3\r\n"_s);
}

// Neither many pieces nor a long one may cost more than their length.
void tst_Scripts::largeScript()
{
    qsizetype characters = 0;
    QString errors;
    const auto count = [&](const QString &command) { characters += command.size(); };
    runScript(u"x'\r\n;"_s.repeated(1'000'000), errors, count);
    const qsizetype frame = scriptBlock(QString()).size();
    QCOMPARE(characters, (frame + 4) * 1'000'000);
    characters = 0;
    runScript(u"x'\r\n"_s.repeated(2'000'000) + u';', errors, count);
    QCOMPARE(characters, frame + 4 * 2'000'000);
}

QTEST_GUILESS_MAIN(tst_Scripts)
#include "tst_scripts.moc"
