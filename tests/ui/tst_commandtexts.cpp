#include "uisupport/ProgramFixture.h"

namespace {

/// In the place of a tab: not Run is pressed, but the buttons of script, commit and rollback.
constexpr int otherButtons = -1;

} // namespace

/// What the commands of the editor window send, letter by letter, seen from the driver's side.
class TestCommandTexts : public QObject
{
    Q_OBJECT
private slots:
    void runs_data();
    void runs();
};

void TestCommandTexts::runs_data()
{
    // What is sent is noted behind a line "--".
    const DataRows<QString, int, QString> row("statement", "tab", "sent");
    row("statement that changes data", u" update t\r\nset c = 'it''s' -- so\r\nwhere 1 = 1 "_s, 0,
        u"--\nbegin \r\n execute immediate ' update t\nset c = ''it''''s'' -- so\n"
        "where 1 = 1 '; end;\n"_s);
    row("query, without comments and carriage returns",
        u"  rows 3 integer\r\n-- a comment\r\nend  "_s, 0, u"--\nrows 3 integer\n\nend\n"_s);
    row("blanks", u"   "_s, 0, QString());
    row("plan", u"select ':x' from t"_s, 1,
        u"--\nDELETE FROM PLAN_TABLE WHERE statement_id = '%1'\n"
        "--\nEXPLAIN PLAN set statement_id = '%1' FOR select '&x' from t\n"
        "--\n SELECT  rtrim(substr(OPERATION || ' ' || OPTIONS    || ' ' ||  OPTIMIZER,1,500))"
        "  Query_Plan, level, id,parent_id, nvl(object_name,' ') object_name, "
        "nvl(to_char(cardinality),' ') cardinality, nvl(to_char(bytes),' ') bytes, "
        "nvl(to_char(COST),' ') cost From (SELECT * FROM PLAN_TABLE WHERE statement_id = '%1')"
        "    START      WITH ID= 0  CONNECT    BY PRIOR ID= PARENT_ID\n"_s.arg(
            u"scott1/2/2026 03:04:05"_s));
    row("server output", u"begin null; end;"_s, 2,
        u"--\n{call dbms_output.disable}\n--\n{call dbms_output.enable(no number)}\n"
        "--\nbegin null; end;\n--\n{call dbms_output.get_line(?, ?)}\n"
        "--\n{call dbms_output.disable}\n"_s);
    row("script, commit and rollback",
        u"drop table x;\r\n-- only a comment;\r\nrefuse 1;\r\n"
        "insert into t values ('a');create table x (a number)"_s,
        otherButtons,
        u"--\nBegin \r\nexecute immediate ('drop table x');\r\nend;\n"
        "--\nBegin \r\nexecute immediate ('\nrefuse 1');\r\nend;\n"
        "--\nBegin \r\nexecute immediate ('\ninsert into t values (''a'')');\r\nend;\n"
        "--\n(commit)\n--\n(rollback)\n"_s);
}

void TestCommandTexts::runs()
{
    QFETCH(QString, statement);
    QFETCH(int, tab);
    const MessageAnswers messages;
    ProgramFixture program;
    const QString record =
        fileInVariable("FAKEDRIVER_STATEMENTS", program.folder() + u"/statements"_s);
    program.start(u"DRIVER=" QUERNA_FAKE_DRIVER ";USER ID=scott;DATA SOURCE=fake;"_s);
    makeFile(record, {});
    setClockSource([] { return QDateTime(QDate(2026, 1, 2), QTime(3, 4, 5)).toUTC(); });
    program.control<QLineEdit>(u"txtBufferSize"_s)->setText(u"no number"_s);
    program.text()->setText(statement);
    if (tab != otherButtons)
        program.run(statement, tab);
    for (const int button : tab == otherButtons ? QList{2, 6, 7} : QList<int>())
        program.press(u"tbrQuerna"_s, button);
    setClockSource({});
    QTEST(QString::fromUtf8(contentOf(record)), "sent");
    QCOMPARE(program.panel(5),
             tab == otherButtons ? QString() : u"Query executed at 1/2/2026 03:04:05"_s);
    // This driver answers every call with the line "out" and the status 7.
    QCOMPARE(program.control<QPlainTextEdit>(u"rtbdbms"_s)->toPlainText(),
             tab == 2 ? u"  out\n"_s : QString());
}

QTEST_MAIN(TestCommandTexts)
#include "tst_commandtexts.moc"
