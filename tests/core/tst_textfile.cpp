#include "sqltext/textFile.h"
#include "support/raisedError.h"
#include "support/testFiles.h"

#include <QFile>
#include <QStringConverter>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(QStringConverter::Encoding)

/// Files in every form that SQL text is kept in, and the failures of reading them.
class tst_TextFile : public QObject
{
    Q_OBJECT
private slots:
    void fileForms_data();
    void fileForms();
    void lineEnds_data();
    void lineEnds();
    void lineEndsInFiles_data();
    void lineEndsInFiles();
    void unpairedSurrogates();
    void errors_data();
    void errors();
    void readsAllOfIt();
};

void tst_TextFile::fileForms_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");

    QTest::newRow("empty") << ""_ba << u""_s;
    QTest::newRow("ASCII") << "select 1"_ba << u"select 1"_s;
    QTest::newRow("UTF-8") << "\xC3\xA4 \xF0\x9F\x98\x80"_ba << u"ä 😀"_s;
    QTest::newRow("UTF-8 with mark") << "\xEF\xBB\xBF\xC3\xA4"_ba << u"ä"_s;
    QTest::newRow("UTF-8 mark alone") << "\xEF\xBB\xBF"_ba << u""_s;
    QTest::newRow("UTF-8 with mark, broken") << "\xEF\xBB\xBF"
                                                "a\xFF"_ba
                                             << u"a\uFFFD"_s;
    QTest::newRow("Latin-1") << "gr\xFC\xDF"_ba << u"grüß"_s;
    QTest::newRow("Latin-1 for broken UTF-8") << "\xC3\xA4\xC3"_ba << u"Ã¤Ã"_s;
    QTest::newRow("surrogate written in UTF-8") << "\xED\xA0\x80"_ba << u"í\u00A0\u0080"_s;
    QTest::newRow("UTF-16 LE") << "\xFF\xFE"
                                  "a\0\xE4\0\n\0"_ba
                               << u"aä\r\n"_s;
    QTest::newRow("UTF-16 BE") << "\xFE\xFF\0a\0\xE4\0\n"_ba << u"aä\r\n"_s;
    QTest::newRow("UTF-16 LE pair") << "\xFF\xFE\x3D\xD8\x00\xDE"_ba << u"😀"_s;
    QTest::newRow("UTF-16 LE, half a unit") << "\xFF\xFE"
                                               "a\0b"_ba
                                            << u"a\uFFFD"_s;
    QTest::newRow("UTF-16 LE, no mark") << "s\0e\0l\0 \0\xE4\0"_ba << u"sel ä"_s;
    QTest::newRow("UTF-16 BE, no mark") << "\0s\0e\0l\0 \0\xE4"_ba << u"sel ä"_s;
    QTest::newRow("zero characters") << "a\0bcdef\0"_ba << QString::fromLatin1("a\0bcdef\0", 8);
}

void tst_TextFile::fileForms()
{
    QFETCH(QByteArray, bytes);
    QTEST(QString::fromUtf8(editorUtf8FromFile(bytes)), "text");
}

void tst_TextFile::lineEnds_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");

    QTest::newRow("LF") << u"a\nb\n"_s << u"a\r\nb\r\n"_s;
    QTest::newRow("CR") << u"a\rb\r"_s << u"a\r\nb\r\n"_s;
    QTest::newRow("CR LF") << u"a\r\nb\r\n"_s << u"a\r\nb\r\n"_s;
    QTest::newRow("all three") << u"a\nb\rc\r\nd"_s << u"a\r\nb\r\nc\r\nd"_s;
    QTest::newRow("LF CR is two") << u"\n\r"_s << u"\r\n\r\n"_s;
    QTest::newRow("CR CR LF is two") << u"\r\r\n"_s << u"\r\n\r\n"_s;
    QTest::newRow("LF LF") << u"\n\n"_s << u"\r\n\r\n"_s;
    QTest::newRow("none") << u"a"_s << u"a"_s;
}

void tst_TextFile::lineEnds()
{
    QFETCH(QString, text);
    QTEST(QString::fromUtf8(editorUtf8(text)), "expected");
    QTEST(QString::fromUtf8(editorUtf8FromFile(text.toUtf8())), "expected");
}

void tst_TextFile::lineEndsInFiles_data()
{
    QTest::addColumn<QStringConverter::Encoding>("encoding");
    QTest::addColumn<bool>("marked");

    QTest::newRow("UTF-8") << QStringConverter::Utf8 << false;
    QTest::newRow("UTF-8 with mark") << QStringConverter::Utf8 << true;
    QTest::newRow("UTF-16 LE") << QStringConverter::Utf16LE << true;
    QTest::newRow("UTF-16 LE, no mark") << QStringConverter::Utf16LE << false;
    QTest::newRow("UTF-16 BE") << QStringConverter::Utf16BE << true;
    QTest::newRow("UTF-16 BE, no mark") << QStringConverter::Utf16BE << false;
    QTest::newRow("Latin-1") << QStringConverter::Latin1 << false;
}

void tst_TextFile::lineEndsInFiles()
{
    QFETCH(QStringConverter::Encoding, encoding);
    QFETCH(bool, marked);
    // In UTF-16 these letters have the bytes of line ends.
    const QString letters = encoding == QStringConverter::Latin1 ? u"äÿ"_s : u"\u0D0A\u0A0D"_s;
    const QString text = u"select 'grüß'\r\n-- %1\r\rfrom dual\n\nwhere 1 = 1\n\r"_s.arg(letters);
    QStringEncoder encode(encoding, marked ? QStringConverter::Flag::WriteBom
                                           : QStringConverter::Flag::Default);
    QCOMPARE(QString::fromUtf8(editorUtf8FromFile(encode(text))),
             u"select 'grüß'\r\n-- %1\r\n\r\nfrom dual\r\n\r\nwhere 1 = 1\r\n\r\n"_s.arg(letters));
}

void tst_TextFile::unpairedSurrogates()
{
    const QString text = u"a"_s + QChar(0xD83D) + u"b"_s + QChar(0xDE00) + QChar(0xD83D);
    QCOMPARE(QString::fromUtf8(editorUtf8(text)), u"a\uFFFDb\uFFFD\uFFFD"_s);
    QCOMPARE(QString::fromUtf8(editorUtf8(QChar(0xD83D) + u"😀"_s)), u"\uFFFD😀"_s);
}

void tst_TextFile::errors_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("error");

    QTest::newRow("no such file") << u"missing.sql"_s << 53;
    QTest::newRow("no such folder") << u"missing/x.sql"_s << 76;
    QTest::newRow("a folder") << u"."_s << 75;
    QTest::newRow("a pipe") << u"pipe"_s << 75;
    QTest::newRow("too large") << u"huge"_s << 7;
}

void tst_TextFile::errors()
{
    QFETCH(QString, path);
    const QTemporaryDir folder;
    const QString pipe = folder.filePath(u"pipe"_s);
    QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    QFile huge(folder.filePath(u"huge"_s));
    QVERIFY(huge.open(QIODevice::WriteOnly) && huge.resize(qint64{3} << 30));
    QTEST(raisedError([&] { readWholeFile(folder.filePath(path)); }), "error");
}

void tst_TextFile::readsAllOfIt()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"text.sql"_s);
    const QByteArray content = QByteArray("select 1;\n").repeated(100000);
    makeFile(path, content);
    QCOMPARE(readWholeFile(path), content);
}

QTEST_GUILESS_MAIN(tst_TextFile)
#include "tst_textfile.moc"
