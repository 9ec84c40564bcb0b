#include "platform/FileHandle.h"
#include "platform/LineReader.h"
#include "platform/TextFileWriter.h"
#include "platform/replaceFile.h"
#include "support/raisedError.h"
#include "support/testFiles.h"

#include <QTemporaryDir>
#include <QTest>

#include <cerrno>
#include <functional>

using namespace Qt::StringLiterals;

using Work = std::function<void()>;

namespace {

void writeFile(const QString &path, TextFileWriter::Mode mode, const QByteArray &content)
{
    TextFileWriter file(path, mode);
    file.write(content);
    file.close();
}

} // namespace

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
    QCOMPARE(contentOf(path(u"pieces"_s)), written);
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
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArrayList>("lines");
    const QByteArray block(64 * 1024, 'x');
    QTest::newRow("empty") << QByteArray() << QByteArrayList{};
    QTest::newRow("line ends") << QByteArray("a\r\nb\n\r\n\nc\rd\r\n")
                               << QByteArrayList{"a", "b", "", "", "c\rd"};
    QTest::newRow("last line without end") << QByteArray("a\nb") << QByteArrayList{"a", "b"};
    QTest::newRow("any bytes") << QByteArray("\0\xff\n\x80", 4)
                               << QByteArrayList{QByteArray("\0\xff", 2), "\x80"};
    QTest::newRow("line of a block") << QByteArray(block + "\na\n") << QByteArrayList{block, "a"};
    QTest::newRow("pair across blocks")
        << QByteArray(block.chopped(1) + "\r\na") << QByteArrayList{block.chopped(1), "a"};
    QTest::newRow("many blocks") << QByteArray(block.repeated(5) + "\n" + block + "\n")
                                 << QByteArrayList{block.repeated(5), block};
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
    QTest::addColumn<Work>("work");
    QTest::addColumn<int>("error");
    const auto row = [](const char *name, Work work, int error) {
        QTest::newRow(name) << std::move(work) << error;
    };
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

QTEST_GUILESS_MAIN(tst_Files)
#include "tst_files.moc"
