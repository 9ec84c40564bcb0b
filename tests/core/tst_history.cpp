#include "history/historyFile.h"
#include "platform/textForms.h"
#include "support/coreTest.h"

namespace {

/// Statement and time of every row, in the recordset's order.
QStringList rowsOf(const Recordset &recordset)
{
    QStringList rows;
    for (qint64 row = 0; row < recordset.RecordCount(); ++row)
        rows << recordset.textAt(row, 0) << recordset.textAt(row, 1);
    return rows;
}

QString readTime(const QString &text)
{
    return timestampToText(textToTimestamp(text));
}

/// A second writing of what the reader does, with no regard to memory. @returns rowsOf() what it
/// reads; @p error becomes what it raises
QStringList literalRows(const QByteArray &content, int &error)
{
    QList<std::pair<QString, QString>> rows;
    QByteArrayList lines = content.split('\n');
    if (lines.last().isEmpty())
        lines.removeLast();
    QByteArray statement;
    QByteArray last;
    bool skipped = false;
    error = raisedError([&] {
        for (QByteArray line : lines) {
            if (line.endsWith('\r'))
                line.chop(1);
            const QByteArray key = trimBlanks(QString::fromLatin1(line)).toLatin1().toUpper();
            if (key == "SQLTIME") {
                const QString text = QString::fromLocal8Bit(statement);
                skipped = text.size() > 1000;
                if (!skipped)
                    rows.append({text, QString()});
                statement.clear();
            } else if (key == "SQLEND") {
                const QString time = skipped ? QString() : readTime(QString::fromLocal8Bit(last));
                if (!skipped && rows.isEmpty())
                    throw RuntimeError(ErrorNumber::NoCurrentRecord);
                if (!skipped)
                    rows.last().second = time;
                statement.clear();
                last.clear();
            } else {
                statement += line + "\r\n";
                last = line;
            }
        }
        std::stable_sort(rows.begin(), rows.end(),
                         [](const auto &a, const auto &b) { return a.second > b.second; });
    });
    QStringList texts;
    for (const auto &[text, time] : rows)
        texts << text << time;
    return texts;
}

} // namespace

class tst_History : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void writing();
    void missingFileIsCreated();
    void loading_data();
    void loading();
    void loadingOfRandomFiles();

private:
    QString path() const { return m_folder->filePath(u"OrbekSqlHistory.txt"_s); }
    void load(Recordset &recordset) { loadHistory(historyFileName(), u"App.path"_s, recordset); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_History::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    setApplicationFolder(m_folder->path());
}

void tst_History::writing()
{
    setClockSource([] { return QDateTime(QDate(2024, 3, 5), QTime(7, 8, 9, 500)).toUTC(); });
    appendToHistory(u"  select 'ä'\r\n  from dual\t \r\n  "_s);
    appendToHistory(QString());
    setClockSource({});
    QCOMPARE(contentOf(path()),
             QByteArray("select 'ä'\r\n  from dual\t \r\n\r\nSQLTIME\r\n3/5/2024 07:08:09\r\n"
                        "SQLEND\r\n\r\nSQLTIME\r\n3/5/2024 07:08:09\r\nSQLEND\r\n"));
    Recordset history;
    load(history);
    QCOMPARE(rowsOf(history),
             (QStringList{u"select 'ä'\r\n  from dual\t \r\n\r\n"_s, u"3/5/2024 07:08:09"_s,
                          u"\r\n"_s, u"3/5/2024 07:08:09"_s}));
}

void tst_History::missingFileIsCreated()
{
    Recordset history;
    load(history);
    QCOMPARE(contentOf(path()), QByteArray());
    QVERIFY(history.Eof());
    QCOMPARE(history.fieldName(0), u"SQL Statement"_s);
    QCOMPARE(history.fieldName(1), u"SQL_Time"_s);
    setApplicationFolder(m_folder->filePath(u"missing"_s));
    QCOMPARE(raisedError([] { appendToHistory(u"select 1"_s); }), ErrorNumber::PathNotFound);
}

void tst_History::loading_data()
{
    const DataRows<QByteArray, QStringList> row("content", "rows");
    const QString time = u"3/5/2024"_s;
    const auto record = [](const QByteArray &statement, const QByteArray &when = "3/5/2024") {
        return statement + "\r\nSQLTIME\r\n" + when + "\r\nSQLEND\r\n";
    };
    row("one record", record("select 1"), {u"select 1\r\n"_s, time});
    row("markers in any case, with blanks", "a\r\n  sqlTime \r\n3/5/2024\r\n sqlend  \r\n",
        {u"a\r\n"_s, time});
    row("more lines than can be counted", record("a") + QByteArray("x\r\n").repeated(32768),
        {u"a\r\n"_s, time, u"error 6"_s});
    row("UTF-8 with a mark", "\xef\xbb\xbf" + record("\xc3\xa4"), {u"ä\r\n"_s, time});
    row("UTF-16", QByteArray("\xff\xfes\0Q\0L\0T\0I\0M\0E\0\r\0\n\0", 20), {});
    row("invalid bytes", record(QByteArray("a\xff\0\x80z", 5)), {u"a\ufffd\0\ufffdz\r\n"_s, time});
    row("newest text first",
        record("a", "12/1/2026") + record("b", "9/1/2026") + record("c", "9/1/2026 10:00:00"),
        {u"c\r\n"_s, u"9/1/2026 10:00:00"_s, u"b\r\n"_s, u"9/1/2026"_s, u"a\r\n"_s,
         u"12/1/2026"_s});

    // The size limit counts characters, the line end among them, and not bytes. The time of a
    // record passed over belongs to no other.
    const QByteArray longest(998, 'x');
    const QByteArray accents = QByteArray("\xc3\xa4").repeated(998);
    row("too long",
        record(longest, "1/4/2024") + record(longest + 'x', "1/5/2024") +
            record(accents + "\xc3\xa4", "1/5/2024") + record(accents, "1/3/2024") +
            record(QByteArray("y\r\n").repeated(20'000), "1/5/2024") + record("z", "1/2/2024"),
        {QString::fromUtf8(longest) + u"\r\n"_s, u"1/4/2024"_s,
         QString::fromUtf8(accents) + u"\r\n"_s, u"1/3/2024"_s, u"z\r\n"_s, u"1/2/2024"_s});
}

void tst_History::loading()
{
    QFETCH(QByteArray, content);
    makeFile(path(), content);
    Recordset history;
    const int error = raisedError([&] { load(history); });
    QStringList rows = rowsOf(history);
    if (error != 0)
        rows << u"error %1"_s.arg(error);
    QTEST(rows, "rows");
}

void tst_History::loadingOfRandomFiles()
{
    static const QByteArrayList pieces{
        "SQLTIME\r\n", "SQLEND\r\n", " sqlTime \n", "\tSQLEND\n",         "a",
        "\xc3\xa4 ",   "\r",         "\n",          QByteArray(990, 'x'), QByteArray("\xff\0", 2)};
    static const QByteArrayList times{"3/5/2024 07:08:09", " 12/1/2023 ", "9/1/2023", "now"};
    QRandomGenerator random(20240305);
    QMap<int, int> errors;
    for (int run = 0; run < 1'500; ++run) {
        QByteArray content;
        for (int record = random.bounded(6); record > 0; --record) {
            for (int count = random.bounded(8); count > 0; --count)
                content += pieces[random.bounded(2, int(pieces.size()))];
            if (random.bounded(9) > 0)
                content += pieces[2 * random.bounded(2)];
            content += times[random.bounded(run % 2 == 0 ? 3 : 4)] + "\r\n";
            content += pieces[random.bounded(12) == 0 ? random.bounded(int(pieces.size())) : 1];
        }
        makeFile(path(), content);
        Recordset history;
        int expectedError = 0;
        const QStringList expected = literalRows(content, expectedError);
        QCOMPARE(raisedError([&] { load(history); }), expectedError);
        QCOMPARE(rowsOf(history), expected);
        ++errors[expectedError];
    }
    QCOMPARE(errors.keys(),
             (QList<int>{0, ErrorNumber::TypeMismatch, ErrorNumber::NoCurrentRecord}));
    QVERIFY(errors[0] > 250);
}

QTEST_GUILESS_MAIN(tst_History)
#include "tst_history.moc"
