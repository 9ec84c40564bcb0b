#include "platform/FileReader.h"
#include "platform/FileWriter.h"
#include "platform/fileErrors.h"
#include "platform/privateSettings.h"
#include "platform/replaceFile.h"
#include "platform/settings.h"
#include "platform/textFile.h"
#include "support/DataRows.h"
#include "support/SmallDisk.h"
#include "support/raisedError.h"
#include "support/testFiles.h"
#include "support/textRows.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cerrno>
#include <filesystem>
#include <functional>
#include <optional>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

using Mode = FileWriter::Mode;
using Work = std::function<void()>;

namespace {

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

const QString application = u"Orbek Oracle"_s;
constexpr int sparseSize = 30'000;

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
        saveSetting(application, u"Settings"_s, u"Login"_s, value);
    }

private:
    QTemporaryDir m_usual;
    std::optional<SmallDisk> m_disk;
    QString m_path;
    std::optional<WithoutRights> m_nobody;
};

/// What the editor makes of a file's bytes, each of which is given as a character.
QString editorText(const QString &bytes)
{
    // A mark at the beginning would be taken for a file's.
    return QString::fromUtf8('x' + editorUtf8FromFile(bytes.toLatin1())).sliced(1);
}

} // namespace

/// Writing files and reading them, in every form that SQL text is kept in.
class tst_Files : public QObject
{
    Q_OBJECT

private slots:
    void writing();
    void savingInPlace_data();
    void savingInPlace();
    void badPlaces_data();
    void badPlaces();
    void lines_data();
    void lines();
    void failures_data();
    void failures();
    void failuresOfTheSystem();
    void texts_data();
    void texts() { compareTextRow(); }

private:
    QString path(const QString &name) const { return m_folder.filePath(name); }

    QTemporaryDir m_folder;
};

void tst_Files::writing()
{
    const QString file = path(u"ä text.txt"_s);
    writeFile(file, Mode::Append, "new\r\n");
    writeFile(file, Mode::Append, "more");
    QCOMPARE(contentOf(file), "new\r\nmore");
    // Pieces below, at and above what is buffered, and a failure elsewhere after the last one.
    QByteArray written;
    const int raised = raisedError([&] {
        FileWriter writer(file, Mode::Replace);
        for (const int size : {1, 16 * 1024, 3, 16 * 1024 + 1, 16 * 1024 - 1, 100'000, 5}) {
            const QByteArray piece(size, static_cast<char>('a' + written.size() % 26));
            written += piece;
            writer.write(piece);
        }
        throw RuntimeError(ErrorNumber::Overflow);
    });
    QCOMPARE(raised, ErrorNumber::Overflow);
    QCOMPARE(FileReader(file).readAll(), written);
    // Files that do not know their size have one of 0.
    QVERIFY(FileReader(u"/proc/self/status"_s).readAll().startsWith("Name:"));
}

// Whoever may write a file can save it, also where nothing can take its place.
void tst_Files::savingInPlace_data()
{
    const DataRows<mode_t, bool, QByteArray> row("mode", "hasFurtherName", "content");
    row("further name, longer", 0777, true, "a longer text");
    row("further name, shorter", 0777, true, "");
    row("folder without write permission", 0555, false, "a longer text");
    row("folder that gives nothing of others away", 01777, false, "new");
}

void tst_Files::savingInPlace()
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
void tst_Files::badPlaces_data()
{
    const DataRows<int> row("error");
    row("full", ErrorNumber::DiskFull);
    row("read-only", ErrorNumber::PathFileAccessError);
    row("forbidden", ErrorNumber::PathFileAccessError);
    row("vanished", ErrorNumber::PathNotFound);
}

void tst_Files::badPlaces()
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
    QCOMPARE(raisedError([&] { writeFile(place.file(u"saved"_s), Mode::Append, much); }), error);
    QVERIFY(contentOf(place.file(u"saved"_s)).startsWith(before));
    QCOMPARE(raisedError([&] { writeFile(place.file(u"new"_s), Mode::Replace, much); }), error);

    const QString settings = privateSettingsPath(application);
    const QByteArray settingsBefore = contentOf(settings);
    const bool canBeMadeAgain = error == ErrorNumber::PathNotFound;
    QCOMPARE(raisedError([&] { place.setLogin(QString(sparseSize, u'x')); }),
             canBeMadeAgain ? 0 : ErrorNumber::PathFileAccessError);
    QCOMPARE(contentOf(settings) == settingsBefore, !canBeMadeAgain);
}

void tst_Files::lines_data()
{
    const DataRows<QByteArray, QByteArrayList> row("content", "lines");
    const QByteArray block(64 * 1024, 'x');
    row("empty", {}, {});
    row("line ends", "a\r\nb\n\r\n\nc\rd\r\n", {"a", "b", "", "", "c\rd"});
    row("last line without end", "a\nb", {"a", "b"});
    row("any bytes", QByteArray("\0\xff\n\x80", 4), {QByteArray("\0\xff", 2), "\x80"});
    row("line of a block", block + "\na\n", {block, "a"});
    row("pair across blocks", block.chopped(1) + "\r\na", {block.chopped(1), "a"});
    row("many blocks", block.repeated(5) + "\n" + block + "\n", {block.repeated(5), block});
}

void tst_Files::lines()
{
    QFETCH(QByteArray, content);
    writeFile(path(u"lines"_s), Mode::Replace, content);
    FileReader reader(path(u"lines"_s));
    QByteArrayList lines;
    while (const auto line = reader.nextLine())
        lines.append(line->toByteArray());
    QTEST(lines, "lines");
}

void tst_Files::failures_data()
{
    const DataRows<Work, int> row("work", "error");
    const auto write = [](const QString &path, const QByteArray &content) {
        return [=] { writeFile(path, Mode::Replace, content); };
    };
    const auto read = [](const QString &path) { return [=] { FileReader(path).nextLine(); }; };
    row("no file", read(path(u"missing"_s)), ErrorNumber::FileNotFound);
    row("no folder to read from", read(path(u"missing/file"_s)), ErrorNumber::PathNotFound);
    row("file for a folder", write(u"/dev/null/file"_s, "a"), ErrorNumber::PathNotFound);
    row("folder to read", read(m_folder.path()), ErrorNumber::PathFileAccessError);
    const auto save = [](const QString &path) { return [=] { replaceFile(path, "a"); }; };
    row("folder to save over", save(m_folder.path()), ErrorNumber::PathFileAccessError);
    row("no room to save to", save(u"/dev/full"_s), ErrorNumber::DiskFull);
    row("no room, told when closing", write(u"/dev/full"_s, "a"), ErrorNumber::DiskFull);
    row("no room", write(u"/dev/full"_s, QByteArray(1'000'000, 'a')), ErrorNumber::DiskFull);

    const auto readWhole = [](const QString &path) { return [=] { FileReader(path).readAll(); }; };
    makePipe(path(u"pipe"_s));
    QFile huge(path(u"huge"_s));
    QVERIFY(huge.open(QIODevice::WriteOnly) && huge.resize(qint64{3} << 30));
    row("pipe", readWhole(path(u"pipe"_s)), ErrorNumber::PathFileAccessError);
    row("device", readWhole(u"/dev/zero"_s), ErrorNumber::PathFileAccessError);
    row("huge file as a whole", readWhole(huge.fileName()), ErrorNumber::OutOfMemory);
}

void tst_Files::failures()
{
    QFETCH(Work, work);
    QTEST(raisedError(work), "error");
}

// Permissions do not hold a superuser back, so these are asked for by their code.
void tst_Files::failuresOfTheSystem()
{
    const auto number = [](int osError, FileUse use) {
        return fileError(osError, u"/tmp"_s, use).number;
    };
    QCOMPARE(number(EACCES, FileUse::Read), ErrorNumber::PermissionDenied);
    QCOMPARE(number(ETXTBSY, FileUse::Write), ErrorNumber::PermissionDenied);
    QCOMPARE(number(EDQUOT, FileUse::Write), ErrorNumber::DiskFull);
    QCOMPARE(number(EIO, FileUse::Read), ErrorNumber::DeviceIoError);
}

void tst_Files::texts_data()
{
    addTextColumns();
    addTextRows("UTF-8", editorText,
                u"→|select 1→select 1|\xC3\xA4 \xF0\x9F\x98\x80→ä 😀|"
                // With a mark.
                "\xEF\xBB\xBF\xC3\xA4→ä|\xEF\xBB\xBF→|\xEF\xBB\xBFz\xFF→z\uFFFD"_s);
    addTextRows("Latin-1, being no UTF-8", editorText,
                u"gr\xFC\xDF→grüß|\xC3\xA4\xC3→Ã¤Ã|\xED\xA0\x80→í\u00A0\u0080"_s);
    addTextRows("UTF-16", editorText,
                u"\xFF\xFEz\0\xE4\0\n\0|\xFE\xFF\0z\0\xE4\0\n→zä\r\n|\xFF\xFE\x3D\xD8\0\xDE→😀|"
                "\xFF\xFEz\0y→z\uFFFD|\xFE\xFF\xFE\xFF→\uFEFF|"
                // Letters with the bytes of line ends.
                "\xFF\xFE\n\r\r\n\r\0\n\0\r\0|\xFE\xFF\r\n\n\r\0\r\0\n\0\r→"
                "\u0D0A\u0A0D\r\n\r\n|"
                // Without a mark, and what only looks a little like it.
                "s\0e\0l\0 \0\xE4\0|\0s\0e\0l\0 \0\xE4→sel ä|z\0ycdef\0→z\0ycdef\0"_s);
    const QString lineEnds = u"a\nb\n|a\rb\r|a\r\nb\r\n→a\r\nb\r\n|a\nb\rc\r\nd→a\r\nb\r\nc\r\nd|"
                             "\n\r|\r\r\n|\n\n→\r\n\r\n|a→a"_s;
    addTextRows("line ends in a file", editorText, lineEnds);
    const auto fromText = [](const QString &text) { return QString::fromUtf8(editorUtf8(text)); };
    addTextRows("line ends", fromText, lineEnds);
    addTextRows("unpaired surrogates", fromText,
                u"z\xD83Dz\xDE00\xD83D→z\uFFFDz\uFFFD\uFFFD|\xD83D😀→\uFFFD😀"_s);
}

QTEST_GUILESS_MAIN(tst_Files)
#include "tst_files.moc"
