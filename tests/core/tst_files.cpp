#include "platform/files.h"
#include "support/coreTest.h"

#include <cerrno>

using Mode = FileWriter::Mode;
using Work = std::function<void()>;

namespace {

void writeFile(const QString &path, FileWriter::Mode mode, const QByteArray &content)
{
    FileWriter file(path, mode);
    file.write(content);
    file.close();
}

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
    makeFile(path(u"file"_s), "a");
    row("file for a folder", write(path(u"file/file"_s), "a"), ErrorNumber::PathNotFound);
    row("folder to read", read(m_folder.path()), ErrorNumber::PathFileAccessError);
    const auto save = [](const QString &path) { return [=] { replaceFile(path, "a"); }; };
    row("folder to save over", save(m_folder.path()), ErrorNumber::PathFileAccessError);
    const auto readWhole = [](const QString &path) { return [=] { FileReader(path).readAll(); }; };
    QFile huge(path(u"huge"_s));
    QVERIFY(huge.open(QIODevice::WriteOnly) && huge.resize(qint64{3} << 30));
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
    QCOMPARE(number(EFBIG, FileUse::Write), ErrorNumber::DiskFull);
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
