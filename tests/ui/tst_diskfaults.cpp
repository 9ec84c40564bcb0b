#include "app/MDIFormQuerna.h"
#include "controls/EditorControl.h"
#include "dataaccess/sandbox/SandboxServer.h"
#include "history/historyFile.h"
#include "platform/RuntimeError.h"
#include "platform/applicationFolder.h"
#include "platform/privateSettings.h"
#include "platform/settings.h"
#include "support/DataRows.h"
#include "support/SandboxFixture.h"
#include "support/raisedError.h"
#include "support/testFiles.h"
#include "uisupport/ModalAnswers.h"
#include "uisupport/ProgramFixture.h"
#include "uisupport/userActions.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

#include <sched.h>
#include <sys/fsuid.h>
#include <sys/mount.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr uid_t nobody = 65534;
const QString application = u"Orbek Oracle"_s;
const QString savedFile = u"saved.sql"_s;
const QString fillerName = u"/filler"_s;
constexpr int pageBytes = 4096;

/// Mounts that nobody else sees, and that go with this process.
bool ownMounts()
{
    return ::unshare(CLONE_NEWNS) == 0 &&
           ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

bool mountMemory(const QString &folder, unsigned long flags, const char *options)
{
    return ::mount("tmpfs", QFile::encodeName(folder).constData(), "tmpfs", flags, options) == 0;
}

void fillUp(const QString &folder)
{
    QFile filler(folder + fillerName);
    if (!filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return;
    while (filler.write(QByteArray(pageBytes, 'x')) > 0) {
    }
}

/// Whoever may do everything is bound by no permissions; for a while, that is nobody.
class WithoutRights
{
public:
    WithoutRights()
    {
        if (taken())
            ::setfsuid(nobody);
    }
    ~WithoutRights() { ::setfsuid(::geteuid()); }
    static bool taken() { return ::geteuid() == 0; }
    WithoutRights(const WithoutRights &) = delete;
    WithoutRights &operator=(const WithoutRights &) = delete;
};

} // namespace

/// Places that take no file: the program tells so once, keeps what is typed and retrieved, and
/// files that are there stay whole.
class TestDiskFaults : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { m_mounts = ownMounts(); }
    void cleanup();
    void files_data();
    void files();
    void sandboxWithoutRoom();

private:
    void makePlace(const QString &kind);
    void checkSaving(ProgramFixture &program, const QString &error);
    void checkExports(ProgramFixture &program, const QString &error);
    void checkHistory(ProgramFixture &program, const QString &error, const QString &readError);
    void checkSettings(bool canBeMade);

    bool m_mounts = false;
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_place;
    QString m_mounted;
};

void TestDiskFaults::cleanup()
{
    if (qEnvironmentVariableIsSet(SandboxFixture::folderVariable)) // the server goes first
        QTRY_COMPARE_WITH_TIMEOUT(SandboxServer::processId(SandboxFolder::ofUser()), 0, 30'000);
    if (!m_mounted.isEmpty())
        ::umount2(QFile::encodeName(m_mounted).constData(), MNT_DETACH);
    m_mounted.clear();
    qunsetenv(SandboxFixture::folderVariable);
}

/// A folder with an older file to save over, old settings and a history, where they can be there.
void TestDiskFaults::makePlace(const QString &kind)
{
    m_folder = std::make_unique<QTemporaryDir>();
    QFile::setPermissions(m_folder->path(), QFile::Permissions(0x7711));
    m_place = m_folder->filePath(u"place"_s);
    if (kind == "vanished"_L1)
        return;
    QVERIFY(QDir().mkpath(m_place));
    const bool isMounted = kind != "forbidden"_L1;
    if (isMounted) {
        QVERIFY(mountMemory(m_place, 0, "size=64k"));
        m_mounted = m_place;
    }
    makeFile(m_place + u'/' + savedFile, "old");
    makeFile(m_place + u'/' + historyFileName(), "a\r\nSQLTIME\r\n3/5/2024\r\nSQLEND\r\n");
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_place));
    saveSetting(application, u"Settings"_s, u"Login"_s, u"old"_s);
    if (kind == "read-only"_L1)
        QVERIFY(mountMemory(m_place, MS_REMOUNT | MS_RDONLY, nullptr));
    if (kind == "full"_L1) {
        fillUp(m_place);
        QFile filler(m_place + fillerName);
        filler.resize(filler.size() - 2 * pageBytes); // room for the beginning
    }
    if (kind == "forbidden"_L1) {
        QFile::setPermissions(m_place + u'/' + historyFileName(), QFile::Permissions(0x4444));
        QFile::setPermissions(m_place, QFile::Permissions(0x5555));
    }
}

void TestDiskFaults::checkSaving(ProgramFixture &program, const QString &error)
{
    const QStringList before = QDir(m_place).entryList(QDir::Files | QDir::Hidden);
    const bool asks = before.contains(savedFile);
    MessageAnswers messages(u"Yes"_s);
    answerFileDialog(m_place + u'/' + savedFile);
    program.menuItem(u"mnuSave"_s)->trigger();
    QCOMPARE(messages.texts.size(), asks ? 2 : 1);
    QCOMPARE(messages.texts.last(), error);
    QCOMPARE(program.text()->Text(), QString(100'000, u'x'));
    QCOMPARE(QDir(m_place).entryList(QDir::Files | QDir::Hidden), before);
    if (asks)
        QCOMPARE(contentOf(m_place + u'/' + savedFile), "old");
}

void TestDiskFaults::checkExports(ProgramFixture &program, const QString &error)
{
    for (const int option : {0, 2, 3, 4}) {
        MessageAnswers messages;
        const QString path = m_place + u"/export%1"_s.arg(option);
        exportRows(program, option, path);
        const bool speaks = option == 2 || option == 3;
        QCOMPARE(messages.texts.size(), speaks ? 1 : 0);
        QVERIFY(!speaks || messages.texts.first().endsWith(u' ' + error));
        QCOMPARE(program.rows(), 1);
        QFile::remove(path); // the next one is to find some room as well
    }
}

void TestDiskFaults::checkHistory(ProgramFixture &program, const QString &error,
                                  const QString &readError)
{
    const QString usual = applicationFolder();
    const QByteArray before = contentOf(m_place + u'/' + historyFileName());
    setApplicationFolder(m_place);
    MessageAnswers messages;
    program.press(u"tbrQuerna"_s, 1);
    QCOMPARE(messages.texts, QStringList(error));
    QVERIFY(contentOf(m_place + u'/' + historyFileName()).startsWith(before));
    QCOMPARE(program.text()->Text(), QString(100'000, u'x'));

    QApplication::setActiveWindow(&program.frame());
    program.text()->setFocus();
    QString shown;
    whenModal([&shown](QWidget *dialog) {
        shown = dialog->objectName();
        dialog->close();
    });
    program.press(u"tbrQuerna"_s, 18);
    QCOMPARE(shown, u"frmSQLHistory"_s);
    QCOMPARE(messages.texts.mid(1).join(u'|'), readError);
    setApplicationFolder(usual);
}

/// What is stored stays whole; a folder that has gone is made again.
void TestDiskFaults::checkSettings(bool canBeMade)
{
    const QByteArray usual = qgetenv("XDG_CONFIG_HOME");
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_place));
    const QByteArray before = contentOf(privateSettingsPath(application));
    const QString entry(100'000, u'x');
    QCOMPARE(raisedError([&] { saveSetting(application, u"Settings"_s, u"Login"_s, entry); }),
             canBeMade ? 0 : ErrorNumber::PathFileAccessError);
    if (!canBeMade)
        QCOMPARE(contentOf(privateSettingsPath(application)), before);
    qputenv("XDG_CONFIG_HOME", usual);
}

void TestDiskFaults::files_data()
{
    const DataRows<QString, QString> row("error", "readError");
    const QString noAccess = errorDescription(ErrorNumber::PathFileAccessError);
    const QString noPath = errorDescription(ErrorNumber::PathNotFound);
    row("full", errorDescription(ErrorNumber::DiskFull), QString());
    row("read-only", noAccess, QString());
    row("forbidden", noAccess, QString());
    row("vanished", noPath, noPath);
}

void TestDiskFaults::files()
{
    QFETCH(QString, error);
    QFETCH(QString, readError);
    const QString kind = QString::fromLatin1(QTest::currentDataTag());
    if (!m_mounts && (kind == "full"_L1 || kind == "read-only"_L1))
        QSKIP("The system lets this user mount nothing.");
    makePlace(kind);
    ProgramFixture program(sqlite);
    program.run(u"select hex(zeroblob(60000)) as a"_s);
    program.text()->setText(QString(100'000, u'x'));

    std::unique_ptr<WithoutRights> rights;
    if (kind == "forbidden"_L1)
        rights = std::make_unique<WithoutRights>();
    checkSaving(program, error);
    checkExports(program, error);
    checkHistory(program, error, readError);
    if (kind != "forbidden"_L1 ||
        WithoutRights::taken()) // their owner gives itself the right again
        checkSettings(kind == "vanished"_L1);
    QVERIFY(program.ends.empty());
}

// Making its database fails, and leaves nothing that would be in the way when there is room; a
// disk that fills up later costs a statement, not what was there.
void TestDiskFaults::sandboxWithoutRoom()
{
    if (!m_mounts)
        QSKIP("The system lets this user mount nothing.");
    m_folder = std::make_unique<QTemporaryDir>();
    m_mounted = m_folder->path();
    QVERIFY(mountMemory(m_mounted, 0, "size=2m"));
    qputenv(SandboxFixture::folderVariable, QFile::encodeName(m_folder->filePath(u"s"_s)));
    const QString database = u"x;Provider=OrbekSandbox"_s;
    ProgramFixture program(sqlite);
    MessageAnswers messages;
    program.logOn(u"scott"_s, u"tiger"_s, database);
    QCOMPARE(messages.texts.size(), 1);
    QVERIFY2(messages.texts.first().contains(u"disk space"_s), qPrintable(messages.texts.first()));

    QVERIFY(mountMemory(m_mounted, MS_REMOUNT, "size=400m"));
    program.logOn(u"scott"_s, u"tiger"_s, database);
    QCOMPARE(messages.texts.size(), 1);
    fillUp(m_mounted);
    program.run(u"create table copies as select * from sales"_s);
    QCOMPARE(messages.texts.size(), 2);
    QFile::remove(m_mounted + fillerName);
    // Servers give up as a whole when they cannot write.
    program.logOn(u"scott"_s, u"tiger"_s, database);
    program.run(u"select count(*) from sales"_s);
    QCOMPARE(program.cell(0, 0), u"100000"_s);
    QCOMPARE(messages.texts.size(), 2);
}

QTEST_MAIN(TestDiskFaults)
#include "tst_diskfaults.moc"
