#include "sqltext/openWork.h"
#include "sqltext/outcomeTexts.h"
#include "sqltext/scriptRunner.h"
#include "sqltext/sqlTexts.h"
#include "support/coreTest.h"

namespace {

/// What stands within the blocks that @p script is sent in, separated by `~`.
QString sentPieces(const QString &script)
{
    const QString frame = scriptBlock(u"~"_s);
    QStringList sent;
    QString errors = u"kept"_s;
    runScript(script, errors, [&](const QString &command, QStringView) {
        const QString piece = command.mid(frame.indexOf(u'~'), command.size() - frame.size() + 1);
        if (command == QString(frame).replace(u'~', piece))
            sent.append(piece);
    });
    return errors == u"kept"_s ? sent.join(u'~') : errors;
}

/// Whether work is open behind each of the statements, which `;` separates and of which `!` marks
/// those that fail and `0` those that change no row: `x` for yes, `.` for no.
QString openWork(const QString &statements, bool definitionsCommit)
{
    QString result;
    bool isOpen = false;
    for (const QString &statement : statements.split(u';')) {
        isOpen = hasOpenWorkAfter(isOpen, {.kind = statementKind(QString(statement).remove(u'!')),
                                           .succeeded = !statement.startsWith(u'!'),
                                           .rowsChanged = statement.endsWith(u'0') ? 0 : -1,
                                           .definitionsCommit = definitionsCommit});
        result += isOpen ? u'x' : u'.';
    }
    return result;
}

/// What is said of `statement#rows that were changed`.
QString outcome(const QString &statement)
{
    return statementText(statement.section(u'#', 0, 0), statement.section(u'#', 1).toInt());
}

QString faultyLine(const QString &description)
{
    const bool isWrapped = description.startsWith(u'w');
    return QString::number(failedLine(description, u"a\nb\nc"_s, isWrapped));
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
    addTextRows(
        "open work", [](const QString &s) { return openWork(s, true); },
        u"select 1;/* c */ Insert x;select 1;commit;(select 1)→.xx..|"
        "update t 0;!delete t;!begin x;!rollback;rollback to a;rollback work→..xxx.|"
        "with a select 1;with a delete b;create table t;create temporary table t→.x.x|"
        "merge x;!drop table t;lock x;→xxxx|call p;;→xxx"_s);
    addTextRows(
        "open work in spite of definitions", [](const QString &s) { return openWork(s, false); },
        u"!create t;create t→.x"_s);
    addTextRows("outcome", outcome,
                u"insert x#1→1 row changed, not committed|-- c\nMERGE#14→14 rows changed, not "
                "committed|delete x#0→No rows changed|update x#-1→Executed|commit→Committed|"
                "rollback#0→Rolled back|begin x#5|create table t#0→Executed; no rows to show|"
                "→Nothing to run"_s);
    addTextRows("line of a failure", faultyLine,
                u"near 'x' at line 2→2|near 'x' at line 4|ORA-00942: no such table→0|"
                "ORA-06550: line 3, column 7:\nPLS: x\nORA-06512: at line 1→3|"
                "ORA-1: x\nORA-06512: at \"S.P\", line 1\nORA-06512: at line 2→2|"
                "w ORA-1: x\nORA-06512: at line 2→0|syntax error at character 3→2|"
                "at offset 6→0|at line 99999999999→0"_s);
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
    const QString script = u"a\r\n;\r\n-- of c\r\nb; /*\r\n*/ c\r\nd\r\n;"_s;
    const ScriptReport report = runScript(script, errors, [&](const QString &, QStringView) {
        if (++sent != 2)
            throw RuntimeError(ErrorNumber::ProviderFailed, u"failure %1"_s.arg(sent));
    });
    QCOMPARE(sent, 3);
    QCOMPARE(errors, u" failure 1\r\n failure 3\r\n"_s);
    QCOMPARE(report.statements, 3);
    const ScriptFailure &last = report.failures.back();
    QCOMPARE(std::pair(last.firstLine, last.lastLine), std::pair(5, 7));
    QCOMPARE(last.description, u"failure 3"_s);
    QCOMPARE(scriptText(3, 2, 1), u"Script: 3 statements, 2 failed, first at line 1"_s);
}

// Neither many pieces nor a long one may cost more than their length.
void tst_Scripts::largeScript()
{
    qsizetype characters = 0;
    QString errors;
    const auto count = [&](const QString &command, QStringView) { characters += command.size(); };
    runScript(u"x'\r\n;"_s.repeated(1'000'000), errors, count);
    const qsizetype frame = scriptBlock(QString()).size();
    QCOMPARE(characters, (frame + 4) * 1'000'000);
    characters = 0;
    runScript(u"x'\r\n"_s.repeated(2'000'000) + u';', errors, count);
    QCOMPARE(characters, frame + 4 * 2'000'000);
}

QTEST_GUILESS_MAIN(tst_Scripts)
#include "tst_scripts.moc"
