#include "platform/FileHandle.h"
#include "platform/LineReader.h"
#include "platform/TextFileWriter.h"
#include "platform/replaceFile.h"
#include "sqltext/textFile.h"
#include "support/DataRows.h"
#include "support/raisedError.h"
#include "support/testFiles.h"
#include "support/textRows.h"

#include <QFile>
#include <QStringConverter>
#include <QTemporaryDir>

#include <cerrno>
#include <functional>
#include <utility>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

using Work = std::function<void()>;

namespace {

void writeFile(const QString &path, TextFileWriter::Mode mode, const QByteArray &content)
{
    TextFileWriter file(path, mode);
    file.write(content);
    file.close();
}

/// What the editor makes of a file's bytes, each of which is given as a character.
QString editorText(const QString &bytes)
{
    return QString::fromUtf8(editorUtf8FromFile(bytes.toLatin1()));
}

} // namespace

/// Writing files and reading them, in every form that SQL text is kept in.
class tst_Files : public QObject
{
    Q_OBJECT

private slots:
    void replacingAndAppending();
    void buffering();
    void failureKeepsWhatWasWritten();
    void lines_data();
    void lines();
    void failures_data();
    void failures();
    void failuresOfTheSystem();
    void texts_data();
    void texts() { compareTextRow(); }
    void lineEndsInEveryEncoding();

private:
    QString path(const QString &name) const { return m_folder.filePath(name); }

    QTemporaryDir m_folder;
};

void tst_Files::replacingAndAppending()
{
    const QString file = path(u"ä text.txt"_s);
    writeFile(file, TextFileWriter::Mode::Append, "new\r\n");
    writeFile(file, TextFileWriter::Mode::Append, "more");
    QCOMPARE(contentOf(file), "new\r\nmore");
    writeFile(file, TextFileWriter::Mode::Replace, "short");
    QCOMPARE(contentOf(file), "short");
    writeFile(file, TextFileWriter::Mode::Replace, "");
    QCOMPARE(contentOf(file), "");
}

void tst_Files::buffering()
{
    // Pieces below, at and above what the writer keeps, in every order.
    const QList<int> sizes = {1, 256 * 1024, 3, 256 * 1024 + 1, 256 * 1024 - 1, 100'000, 200'000};
    QByteArray written;
    TextFileWriter file(path(u"pieces"_s), TextFileWriter::Mode::Replace);
    for (const int size : sizes) {
        const QByteArray piece(size, static_cast<char>('a' + written.size() % 26));
        written += piece;
        file.write(piece);
    }
    file.close();
    QCOMPARE(readWholeFile(path(u"pieces"_s)), written);
}

void tst_Files::failureKeepsWhatWasWritten()
{
    const int raised = raisedError([this] {
        TextFileWriter file(path(u"half"_s), TextFileWriter::Mode::Replace);
        file.write("first");
        throw RuntimeError(ErrorNumber::Overflow);
    });
    QCOMPARE(raised, ErrorNumber::Overflow);
    QCOMPARE(contentOf(path(u"half"_s)), "first");
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
    writeFile(path(u"lines"_s), TextFileWriter::Mode::Replace, content);
    LineReader reader(path(u"lines"_s));
    QByteArrayList lines;
    while (const auto line = reader.nextLine())
        lines.append(line->toByteArray());
    QTEST(lines, "lines");
}

void tst_Files::failures_data()
{
    const DataRows<Work, int> row("work", "error");
    const auto write = [](const QString &path, const QByteArray &content) {
        return [=] { writeFile(path, TextFileWriter::Mode::Append, content); };
    };
    const auto read = [](const QString &path) { return [=] { LineReader(path).nextLine(); }; };
    row("no file", read(path(u"missing"_s)), ErrorNumber::FileNotFound);
    row("no folder to read from", read(path(u"missing/file"_s)), ErrorNumber::PathNotFound);
    row("no folder to write to", write(path(u"missing/file"_s), "a"), ErrorNumber::PathNotFound);
    row("file for a folder", write(u"/dev/null/file"_s, "a"), ErrorNumber::PathNotFound);
    row("folder to read", read(m_folder.path()), ErrorNumber::PathFileAccessError);
    row("folder to write", write(m_folder.path(), "a"), ErrorNumber::PathFileAccessError);
    const auto save = [](const QString &path) { return [=] { replaceFile(path, "a"); }; };
    row("folder to save over", save(m_folder.path()), ErrorNumber::PathFileAccessError);
    row("no room to save to", save(u"/dev/full"_s), ErrorNumber::DiskFull);
    row("no room, told when closing", write(u"/dev/full"_s, "a"), ErrorNumber::DiskFull);
    row("no room", write(u"/dev/full"_s, QByteArray(1'000'000, 'a')), ErrorNumber::DiskFull);

    const auto readWhole = [](const QString &path) { return [=] { readWholeFile(path); }; };
    QCOMPARE(mkfifo(QFile::encodeName(path(u"pipe"_s)).constData(), 0600), 0);
    QFile huge(path(u"huge"_s));
    QVERIFY(huge.open(QIODevice::WriteOnly) && huge.resize(qint64{3} << 30));
    row("whole missing file", readWhole(path(u"missing"_s)), ErrorNumber::FileNotFound);
    row("whole folder", readWhole(m_folder.path()), ErrorNumber::PathFileAccessError);
    row("whole pipe", readWhole(path(u"pipe"_s)), ErrorNumber::PathFileAccessError);
    row("whole huge file", readWhole(huge.fileName()), ErrorNumber::OutOfMemory);
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
    QCOMPARE(number(EACCES, FileUse::Write), ErrorNumber::PathFileAccessError);
    QCOMPARE(number(EROFS, FileUse::Write), ErrorNumber::PathFileAccessError);
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
                "\xFF\xFEz\0y→z\uFFFD|"
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

void tst_Files::lineEndsInEveryEncoding()
{
    using Encode = QStringConverter;
    for (const auto &[encoding, marked] : {std::pair{Encode::Utf8, false},
                                           {Encode::Utf8, true},
                                           {Encode::Utf16LE, true},
                                           {Encode::Utf16LE, false},
                                           {Encode::Utf16BE, true},
                                           {Encode::Utf16BE, false},
                                           {Encode::Latin1, false}}) {
        // In UTF-16 these letters have the bytes of line ends.
        const QString letters = encoding == Encode::Latin1 ? u"äÿ"_s : u"\u0D0A\u0A0D"_s;
        const QString text =
            u"select 'grüß'\r\n-- %1\r\rfrom dual\n\nwhere 1 = 1\n\r"_s.arg(letters);
        QStringEncoder encode(encoding, marked ? Encode::Flag::WriteBom : Encode::Flag::Default);
        QCOMPARE(
            QString::fromUtf8(editorUtf8FromFile(encode(text))),
            u"select 'grüß'\r\n-- %1\r\n\r\nfrom dual\r\n\r\nwhere 1 = 1\r\n\r\n"_s.arg(letters));
    }
}

QTEST_GUILESS_MAIN(tst_Files)
#include "tst_files.moc"
