#include "history/historyFile.h"
#include "platform/RecoveryFile.h"
#include "platform/files.h"
#include "support/LooseEnd.h"
#include "support/SmallDisk.h"
#include "support/coreTest.h"

#include <csignal>
#include <filesystem>
#include <optional>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

const QString application = u"Orbek Oracle"_s;
const QString section = u"Settings"_s;
const QString controlKey = u"Software\\BCDLL\\CurrentVersion"_s;
constexpr int sparseSize = 30'000;

void writeFile(const QString &path, FileWriter::Mode mode, const QByteArray &content)
{
    FileWriter file(path, mode);
    file.write(content);
    file.close();
}

void setMode(const QString &path, mode_t mode)
{
    ::chmod(QFile::encodeName(path).constData(), mode);
}

void addName(const QString &path, const QString &name)
{
    std::filesystem::create_hard_link(path.toStdString(), name.toStdString());
}

/// A folder of the kind that it is called, with an old file, one with a further name, one whose
/// blocks have not been given out yet, and settings.
class BadPlace
{
public:
    explicit BadPlace(const QString &kind)
        : m_path(m_usual.filePath(u"place"_s))
    {
        setMode(m_usual.path(), 0711);
        if (kind == "full"_L1 || kind == "read-only"_L1)
            m_path = m_disk.emplace("64k").path();
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_path));
        if (kind == "vanished"_L1 || !canBeMade())
            return;
        QDir().mkpath(m_path);
        for (const QString &name : {u"saved"_s, u"linked"_s, u"sparse"_s})
            makeFile(file(name), "old");
        QFile::resize(file(u"sparse"_s), sparseSize);
        addName(file(u"sparse"_s), file(u"linked to sparse"_s));
        addName(file(u"linked"_s), file(u"linked too"_s));
        setLogin(u"old"_s);
        if (kind == "full"_L1)
            m_disk->fill(2); // room for a beginning
        if (kind == "read-only"_L1)
            m_disk->makeReadOnly();
        if (kind == "forbidden"_L1) {
            for (const QString &name : fileNames())
                setMode(file(name), 0444);
            setMode(m_path, 0555);
            m_nobody.emplace();
        }
    }
    bool canBeMade() const { return !m_disk || m_disk->isThere(); }
    QString file(const QString &name) const { return m_path + u'/' + name; }
    QStringList fileNames() const { return QDir(m_path).entryList(QDir::Files | QDir::Hidden); }
    void setLogin(const QString &value) const
    {
        saveSetting(application, section, u"Login"_s, value);
    }

private:
    QTemporaryDir m_usual;
    std::optional<SmallDisk> m_disk;
    QString m_path;
    std::optional<WithoutRights> m_nobody;
};

} // namespace

/// What only Unix has: modes of files, pipes, disks that fill up, processes that fork.
class tst_Platform : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void storeIsTheOwnersAlone();
    void storeThatCannotBeUsed();
    void historyIsTheOwnersAlone();
    void savingInPlace_data();
    void savingInPlace();
    void badPlaces_data();
    void badPlaces();
    void filesThatAreNone();
    void textsOutliveASuddenEnd();
    void programsGetNoFilesOfOurs();

private:
    std::unique_ptr<QTemporaryDir> m_config;
};

void tst_Platform::init()
{
    m_config = std::make_unique<QTemporaryDir>();
    QVERIFY(m_config->isValid());
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_config->filePath(u"home"_s)));
}

void tst_Platform::storeIsTheOwnersAlone()
{
    const QString path = privateSettingsPath(application);
    const QString folder = QFileInfo(path).path();
    const mode_t before = umask(0);
    changePrivateSettings(application, [&](QSettings &) {
        QCOMPARE(modeOf(path), 0600);
        QCOMPARE(modeOf(folder), 0700);
    });
    saveSetting(application, section, u"Password"_s, u"tiger"_s);
    umask(before);
    QCOMPARE(modeOf(path), 0600);

    setMode(path, 0644);
    setMode(folder, 0755);
    saveSetting(application, section, u"Password"_s, u"lantern"_s);
    QCOMPARE(modeOf(path), 0600);
    QCOMPARE(modeOf(folder), 0700);
}

void tst_Platform::storeThatCannotBeUsed()
{
    QFile inTheWay(m_config->filePath(u"home"_s));
    QVERIFY(inTheWay.open(QIODevice::WriteOnly));
    const auto save = [] { saveSetting(application, section, u"Login"_s, u"scott"_s); };
    const auto get = [] { getSetting(application, section, u"Login"_s); };
    QCOMPARE(raisedError(save), ErrorNumber::PathFileAccessError);
    QCOMPARE(CreateRegKey(controlKey, RegistryHive::LocalMachine), 0);
    QCOMPARE(SetRegValue(controlKey, u"name"_s, u"value"_s), 0);
    QCOMPARE(SetRegValue(controlKey, u"name"_s, QString()), 0);

    QVERIFY(inTheWay.remove());
    QVERIFY(QDir().mkpath(privateSettingsPath(application)));
    QCOMPARE(raisedError(save), ErrorNumber::PathFileAccessError);
    QCOMPARE(raisedError(get), ErrorNumber::PathFileAccessError);

    QVERIFY(QDir().rmdir(privateSettingsPath(application)));
    makePipe(privateSettingsPath(application));
    for (const RuntimeError &error : {raised(save), raised(get)})
        QVERIFY(error.description.endsWith(u"not an ordinary file."_s));
}

// Statements hold passwords: whoever makes the file, its owner alone can read it.
void tst_Platform::historyIsTheOwnersAlone()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(historyFileName());
    setApplicationFolder(folder.path());
    const auto load = [] {
        Recordset history;
        loadHistory(historyFileName(), {}, history);
    };
    const auto append = [] { appendToHistory(u"select 1"_s); };
    const mode_t before = umask(0);
    load();
    QCOMPARE(modeOf(path), 0600);
    QFile::remove(path);
    append();
    umask(before);
    QCOMPARE(modeOf(path), 0600);
    setMode(path, 0644);
    append();
    QCOMPARE(modeOf(path), 0644);

    QFile::remove(path);
    makePipe(path);
    for (const RuntimeError &error : {raised(append), raised(load)})
        QCOMPARE(error.description, path + u" is a device or a pipe and not an ordinary file."_s);
}

// Whoever may write a file can save it, also where nothing can take its place.
void tst_Platform::savingInPlace_data()
{
    const DataRows<mode_t, bool, QByteArray> row("mode", "hasFurtherName", "content");
    row("further name, longer", 0777, true, "a longer text");
    row("further name, shorter", 0777, true, "");
    row("folder without write permission", 0555, false, "a longer text");
    row("folder that gives nothing of others away", 01777, false, "new");
}

void tst_Platform::savingInPlace()
{
    QFETCH(mode_t, mode);
    QFETCH(bool, hasFurtherName);
    QFETCH(QByteArray, content);
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"saved"_s);
    const QString other = folder.filePath(u"other"_s);
    makeFile(file, "old text");
    setMode(file, 0666);
    if (hasFurtherName)
        addName(file, other);
    setMode(folder.path(), mode);
    {
        const WithoutRights nobody;
        replaceFile(file, content);
    }
    setMode(folder.path(), 0777);
    QCOMPARE(contentOf(hasFurtherName ? other : file), content);
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(),
             hasFurtherName ? 2 : 1);
}

// Whatever is saved, added, written or set there: it fails as it should, and nothing is lost or
// left over.
void tst_Platform::badPlaces_data()
{
    const DataRows<int> row("error");
    row("full", ErrorNumber::DiskFull);
    row("read-only", ErrorNumber::PathFileAccessError);
    row("forbidden", ErrorNumber::PathFileAccessError);
    row("vanished", ErrorNumber::PathNotFound);
}

void tst_Platform::badPlaces()
{
    QFETCH(int, error);
    const BadPlace place(QString::fromLatin1(QTest::currentDataTag()));
    if (!place.canBeMade())
        QSKIP("The system lets this user mount nothing.");
    const QByteArray much(sparseSize, 'x');
    const QStringList namesBefore = place.fileNames();
    for (const QString &name : {u"saved"_s, u"linked"_s, u"sparse"_s, u"new"_s}) {
        const QByteArray before = contentOf(place.file(name));
        QCOMPARE(raisedError([&] { replaceFile(place.file(name), much); }), error);
        QCOMPARE(contentOf(place.file(name)), before);
    }
    QCOMPARE(place.fileNames(), namesBefore);

    const QByteArray before = contentOf(place.file(u"saved"_s));
    QCOMPARE(
        raisedError([&] { writeFile(place.file(u"saved"_s), FileWriter::Mode::Append, much); }),
        error);
    QVERIFY(contentOf(place.file(u"saved"_s)).startsWith(before));
    QCOMPARE(raisedError([&] { writeFile(place.file(u"new"_s), FileWriter::Mode::Replace, much); }),
             error);

    const QString settings = privateSettingsPath(application);
    const QByteArray settingsBefore = contentOf(settings);
    const bool canBeMadeAgain = error == ErrorNumber::PathNotFound;
    QCOMPARE(raisedError([&] { place.setLogin(QString(sparseSize, u'x')); }),
             canBeMadeAgain ? 0 : ErrorNumber::PathFileAccessError);
    QCOMPARE(contentOf(settings) == settingsBefore, !canBeMadeAgain);
}

void tst_Platform::filesThatAreNone()
{
    const QString full = u"/dev/full"_s;
    QCOMPARE(raisedError([&] { replaceFile(full, "a"); }), ErrorNumber::DiskFull);
    for (const int size : {1, 1'000'000}) // told when closing, told when writing
        QCOMPARE(
            raisedError([&] { writeFile(full, FileWriter::Mode::Replace, QByteArray(size, 'a')); }),
            ErrorNumber::DiskFull);
    const QString pipe = m_config->filePath(u"pipe"_s);
    makePipe(pipe);
    for (const QString &path : {pipe, u"/dev/zero"_s})
        QCOMPARE(raisedError([&] { FileReader(path).readAll(); }),
                 ErrorNumber::PathFileAccessError);
    // Files that do not know their size have one of 0.
    QVERIFY(FileReader(u"/proc/self/status"_s).readAll().startsWith("Name:"));
}

void tst_Platform::textsOutliveASuddenEnd()
{
    const QString state = m_config->filePath(u"state"_s);
    qputenv("XDG_STATE_HOME", QFile::encodeName(state));
    const auto lost = [] {
        QByteArrayList texts;
        for (const std::unique_ptr<LostText> &text : LostText::all())
            texts += text->text();
        return texts.join('|');
    };
    // In a process of its own, which ends as @p end has it.
    const auto keepAnd = [](const QByteArray &text, auto &&end) {
        const pid_t child = fork();
        if (child == 0) {
            RecoveryFile file;
            file.keep("an older text");
            file.keep(text);
            end();
        }
        return child;
    };
    const auto killed = [] { ::raise(SIGKILL); };
    const auto goingOn = [] { ::pause(); };
    const auto endOf = [](pid_t child) { ::waitpid(child, nullptr, 0); };

    endOf(keepAnd("select 'ä'", killed));
    QCOMPARE(lost(), "select 'ä'");
    const pid_t living = keepAnd("still at work", goingOn);
    const auto filesThere = [&] {
        return QDir(state + u"/Querna"_s).entryList({u"*.sql"_s}, QDir::Files).size();
    };
    QTRY_COMPARE(filesThere(), 2);
    QCOMPARE(lost(), "select 'ä'");
    ::kill(living, SIGKILL);
    endOf(living);
    QCOMPARE(lost(), "select 'ä'|still at work");

    setMode(state + u"/Querna"_s, 0755); // another program's doing, for instance
    RecoveryFile own;
    own.keep("mine");
    {
        const auto texts = LostText::all();
        QCOMPARE(texts.size(), 2U);
        QCOMPARE(lost(), ""); // whoever holds them offers them alone
        QCOMPARE(texts.front()->text(6), "select");
        texts.front()->discard();
    }
    QCOMPARE(lost(), "still at work");
    for (const QFileInfo &file : QDir(state + u"/Querna"_s).entryInfoList({u"*.sql"_s}))
        QCOMPARE(modeOf(file.filePath()), 0600);
    QCOMPARE(modeOf(state + u"/Querna"_s), 0700);
    own.keep({});
    QCOMPARE(filesThere(), 1);
}

void tst_Platform::programsGetNoFilesOfOurs()
{
    LooseEnd looseEnd;
    startProgram(u"/bin/sleep"_s, {u"3"_s});
    QVERIFY(looseEnd.isOursAlone());
}

QTEST_GUILESS_MAIN(tst_Platform)
#include "tst_platform.moc"
