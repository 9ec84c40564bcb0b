#include "support/SmallDisk.h"
#include "uisupport/ProgramFixture.h"

/// Places that take no file: the program tells so once, and keeps what is typed and retrieved.
class TestDiskFaults : public QObject
{
    Q_OBJECT
private slots:
    void cleanup();
    void commandsWithoutAPlace();
    void sandboxWithoutRoom();

private:
    std::unique_ptr<SmallDisk> m_disk;
};

void TestDiskFaults::cleanup()
{
    if (m_disk) // the server goes first
        QTRY_VERIFY_WITH_TIMEOUT(SandboxFixture::hasEnded(), 30'000);
    m_disk.reset();
    qunsetenv(SandboxFixture::folderVariable);
}

void TestDiskFaults::commandsWithoutAPlace()
{
    ProgramFixture program(sqlite);
    program.run(u"select 1 as a"_s);
    const QString typed(100'000, u'x');
    program.text()->setText(typed);
    const QString place = program.folder() + u"/vanished"_s;
    const QString error = errorDescription(ErrorNumber::PathNotFound);
    MessageAnswers messages;

    answerFileDialog(place + u"/saved.sql"_s);
    program.menuItem(u"mnuSave"_s)->trigger();
    for (const int option : {0, 2, 3, 4})
        exportRows(program, option, place + u"/export"_s);
    setApplicationFolder(place);
    program.press(u"tbrQuerna"_s, 1);
    QApplication::setActiveWindow(&program.frame());
    program.text()->setFocus();
    QString shown;
    whenModal([&shown](QWidget *dialog) {
        shown = dialog->objectName();
        dialog->close();
    });
    program.press(u"tbrQuerna"_s, 18);

    QCOMPARE(shown, u"frmSQLHistory"_s);
    const QString numbered = u"76 "_s + error;
    QCOMPARE(messages.texts, (QStringList{error, numbered, numbered, error, error}));
    QCOMPARE(program.text()->Text(), typed);
    QCOMPARE(program.rows(), 1);
    QVERIFY(program.ends.empty());
}

// Making its database fails, and leaves nothing that would be in the way when there is room; a
// disk that fills up later costs a statement, not what was there.
void TestDiskFaults::sandboxWithoutRoom()
{
    m_disk = std::make_unique<SmallDisk>("2m");
    if (!m_disk->isThere())
        QSKIP("The system lets this user mount nothing.");
    qputenv(SandboxFixture::folderVariable, QFile::encodeName(m_disk->file(u"s"_s)));
    const QString database = u"x;Provider=OrbekSandbox"_s;
    ProgramFixture program(sqlite);
    MessageAnswers messages;
    program.logOn(u"scott"_s, u"tiger"_s, database);
    QCOMPARE(messages.texts.size(), 1);
    QVERIFY2(messages.texts.first().contains(u"disk space"_s), qPrintable(messages.texts.first()));

    QVERIFY(m_disk->setSize("400m"));
    program.logOn(u"scott"_s, u"tiger"_s, database);
    QCOMPARE(messages.texts.size(), 1);
    m_disk->fill();
    program.run(u"create table copies as select * from sales"_s);
    QCOMPARE(messages.texts.size(), 2);
    m_disk->empty();
    // Servers give up as a whole when they cannot write.
    program.logOn(u"scott"_s, u"tiger"_s, database);
    program.run(u"select count(*) from sales"_s);
    QCOMPARE(program.cell(0, 0), u"100000"_s);
    QCOMPARE(messages.texts.size(), 2);
}

QTEST_MAIN(TestDiskFaults)
#include "tst_diskfaults.moc"
