#include "controls/EditorControl.h"
#include "editor/frmQuerna.h"
#include "platform/systemClock.h"
#include "uisupport/ModalAnswers.h"
#include "uisupport/ProgramFixture.h"

#include <QFile>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

/// What the commands of the editor window send, letter by letter, seen from the driver's side.
class TestCommandTexts : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void dataChangingStatement();
    void queryGoesWithoutCommentsAndCarriageReturns();
    void scriptPieces();
    void explainPlan();
    void serverOutput();
    void commitAndRollback();

private:
    /// The statements since the last call, each behind a line "--".
    QString sent();

    std::unique_ptr<ProgramFixture> m_program;
    std::unique_ptr<MessageAnswers> m_messages;
    QString m_record;
};

void TestCommandTexts::init()
{
    m_program = std::make_unique<ProgramFixture>();
    m_messages = std::make_unique<MessageAnswers>();
    m_record = m_program->folder() + u"/statements"_s;
    qputenv("FAKEDRIVER_STATEMENTS", QFile::encodeName(m_record));
    m_program->start(u"DRIVER=" QUERNA_FAKE_DRIVER ";USER ID=scott;DATA SOURCE=fake;"_s);
    QVERIFY(m_program->editor() != nullptr);
    sent();
}

void TestCommandTexts::cleanup()
{
    setClockSource({});
    m_program.reset();
    qunsetenv("FAKEDRIVER_STATEMENTS");
}

QString TestCommandTexts::sent()
{
    QFile file(m_record);
    if (!file.open(QIODevice::ReadWrite))
        return {};
    const QString text = QString::fromUtf8(file.readAll());
    file.resize(0);
    return text;
}

void TestCommandTexts::dataChangingStatement()
{
    m_program->run(u" update t\r\nset c = 'it''s' -- so\r\nwhere 1 = 1 "_s);
    QCOMPARE(sent(), u"--\nbegin \r\n execute immediate ' update t\nset c = ''it''''s'' -- so\n"
                     "where 1 = 1 '; end;\n"_s);
    QVERIFY(m_messages->texts.isEmpty());
}

void TestCommandTexts::queryGoesWithoutCommentsAndCarriageReturns()
{
    m_program->run(u"  rows 3 integer\r\n-- a comment\r\nend  "_s);
    QCOMPARE(sent(), u"--\nrows 3 integer\n\nend\n"_s);
    QCOMPARE(m_program->panel(4), u"Records Retrieved: 3"_s);
    m_program->run(u"   "_s);
    QCOMPARE(sent(), QString());
}

void TestCommandTexts::scriptPieces()
{
    m_program->text()->setText(u"drop table x;\r\n-- only a comment;\r\nrefuse 1;\r\n"
                               "insert into t values ('a');create table x (a number)"_s);
    m_program->press(u"tbrQuerna"_s, 2);
    QCOMPARE(sent(),
             u"--\nBegin \r\nexecute immediate ('drop table x');\r\nend;\n"
             "--\nBegin \r\nexecute immediate ('\nrefuse 1');\r\nend;\n"
             "--\nBegin \r\nexecute immediate ('\ninsert into t values (''a'')');\r\nend;\n"_s);
}

void TestCommandTexts::explainPlan()
{
    setClockSource([] { return QDateTime(QDate(2026, 1, 2), QTime(3, 4, 5)).toUTC(); });
    m_program->run(u"select ':x' from t"_s, 1);
    const QString id = u"scott1/2/2026 03:04:05"_s;
    QCOMPARE(sent(),
             u"--\nDELETE FROM PLAN_TABLE WHERE statement_id = '%1'\n"
             "--\nEXPLAIN PLAN set statement_id = '%1' FOR select '&x' from t\n"
             "--\n SELECT  rtrim(substr(OPERATION || ' ' || OPTIONS    || ' ' ||  OPTIMIZER,1,500))"
             "  Query_Plan, level, id,parent_id, nvl(object_name,' ') object_name, "
             "nvl(to_char(cardinality),' ') cardinality, nvl(to_char(bytes),' ') bytes, "
             "nvl(to_char(COST),' ') cost From (SELECT * FROM PLAN_TABLE WHERE statement_id = '%1')"
             "    START      WITH ID= 0  CONNECT    BY PRIOR ID= PARENT_ID\n"_s.arg(id));
    QCOMPARE(m_program->panel(5), u"Query executed at 1/2/2026 03:04:05"_s);
}

void TestCommandTexts::serverOutput()
{
    m_program->editor()->findChild<QLineEdit *>(u"txtBufferSize"_s)->setText(u"no number"_s);
    m_program->run(u"begin null; end;"_s, 2);
    // This driver answers every call with the line "out" and the status 7.
    QCOMPARE(sent(), u"--\n{call dbms_output.disable}\n--\n{call dbms_output.enable(no number)}\n"
                     "--\nbegin null; end;\n--\n{call dbms_output.get_line(?, ?)}\n"
                     "--\n{call dbms_output.disable}\n"_s);
    QCOMPARE(m_program->editor()->findChild<QPlainTextEdit *>(u"rtbdbms"_s)->toPlainText(),
             u"  out\n"_s);
}

void TestCommandTexts::commitAndRollback()
{
    m_program->press(u"tbrQuerna"_s, 6);
    QCOMPARE(sent(), u"--\n(commit)\n"_s);
    m_program->press(u"tbrQuerna"_s, 7);
    QCOMPARE(sent(), u"--\n(rollback)\n"_s);
}

QTEST_MAIN(TestCommandTexts)
#include "tst_commandtexts.moc"
