#include "export/exportFormats.h"
#include "support/coreTest.h"

namespace {

using Writer = std::function<void(Recordset &, const QString &path)>;

const Writer comma = writeCommaDelimited;

Writer separated(const QString &separator)
{
    return [separator](Recordset &rs, const QString &path) { writeDelimited(rs, path, separator); };
}

const Writer tab = separated(u"\t"_s);

Writer insert(const QString &table)
{
    return [table](Recordset &rs, const QString &path) { writeInsertStatements(rs, path, table); };
}

} // namespace

class tst_Export : public QObject
{
    Q_OBJECT

private slots:
    void lines_data();
    void lines();
    void startsFromTheFirstRecordAgain();
    void countsInSixteenBits();
    void cellsAsSql();

private:
    QByteArray content() const { return contentOf(m_path); }

    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath(u"Export.txt"_s);
};

void tst_Export::lines_data()
{
    const DataRows<Writer, std::shared_ptr<Recordset>, QByteArray> row("write", "table", "content");
    const QList<TableColumn> two = {{u"A"_s}, {u"B"_s}};
    const Timestamp hired{2024, 3, 5, 17, 8, 9, 0};

    const auto trimmed = makeTable(two, {{u"  a b "_s, 1}, {u" \tx\t "_s, u"   "_s}});
    row("comma, trimmed", comma, trimmed, "a b,1\r\n\tx\t,\r\n");
    row("other, trimmed", separated(u" || "_s), trimmed, "a b || 1\r\n\tx\t || \r\n");
    row("other, no separator", separated(QString()), trimmed, "a b1\r\n\tx\t\r\n");
    row("insert, as it stands", insert(u"t"_s), trimmed,
        "Insert into t (A,B) VALUES ('  a b ' ,'1' );\r\n"
        "Insert into t (A,B) VALUES (' \tx\t ' ,'   ' );\r\n");

    const auto nulls =
        makeTable(two, {{NullValue{}, 1}, {1, NullValue{}}, {NullValue{}, NullValue{}}});
    row("comma, nulls", comma, nulls, ",1\r\n1,,\r\n,,\r\n");
    row("other, nulls are tabs", separated(u";"_s), nulls, "\t1\r\n1;\t\r\n\t\t\r\n");
    row("other, nulls without a separator", separated(QString()), nulls, "\t1\r\n1\t\r\n\t\t\r\n");

    const auto quoting = makeTable(two, {{u"a,b\t'c'"_s, u"\"d\r\ne\""_s}});
    row("comma, nothing is quoted", comma, quoting, "a,b\t'c',\"d\r\ne\"\r\n");
    row("insert, no quote is doubled", insert(QString()), quoting,
        "Insert into  (A,B) VALUES ('a,b\t'c'' ,'\"d\r\ne\"' );\r\n");

    const auto dates =
        makeTable({{u"HIRED"_s, adDBTimeStamp}, {u"SEEN"_s, adVariant}, {u"NAME"_s, adVarChar}},
                  {{hired, hired, hired}, {NullValue{}, NullValue{}, NullValue{}}});
    row("comma, dates", comma, dates,
        "3/5/2024 17:08:09,3/5/2024 17:08:09,3/5/2024 17:08:09\r\n,,,\r\n");
    row("insert, dates of timestamp fields", insert(u"EMP"_s), dates,
        "Insert into EMP (HIRED,SEEN,NAME) VALUES ('05-Mar-2024' ,'3/5/2024 17:08:09' ,'3/5/2024 "
        "17:08:09' );\r\n"
        "Insert into EMP (HIRED,SEEN,NAME) VALUES ('' ,'' ,'' );\r\n");
    row("one field", comma, makeTable({{u"A"_s}}, {{u"a"_s}, {NullValue{}}, {EmptyValue{}}}),
        "a\r\n,\r\n\r\n");
}

void tst_Export::lines()
{
    QFETCH(Writer, write);
    QFETCH(std::shared_ptr<Recordset>, table);
    write(*table, m_path);
    QTEST(content(), "content");
}

void tst_Export::startsFromTheFirstRecordAgain()
{
    const auto table =
        makeTable({{u"A"_s}}, {{1}, {2}, {3}}); // the last one is current, being edited
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(writeDelimited(*table, m_path, u";"_s), qint16(3));
        QCOMPARE(content(), "1\r\n2\r\n3\r\n");
        QVERIFY(!table->Eof());
    }
    // Nothing replaces a file by nothing.
    QCOMPARE(raisedError([&] { comma(*makeTable({{u"A"_s}}, {}), m_path); }),
             ErrorNumber::NoCurrentRecord);
    QCOMPARE(content(), "1\r\n2\r\n3\r\n");
}

void tst_Export::countsInSixteenBits()
{
    constexpr int most = 32767;
    const auto table = makeTable({{u"A"_s}}, QList<QList<Value>>(most, {7}));
    QCOMPARE(writeDelimited(*table, m_path, u"\t"_s), qint16(most));
    QCOMPARE(writeInsertStatements(*table, m_path, u"t"_s), qint16(most));
    table->AddNew();
    QCOMPARE(raisedError([&] { tab(*table, m_path); }), ErrorNumber::Overflow);
    QCOMPARE(content(), QByteArray("7\r\n").repeated(most));
    comma(*table, m_path);
    QCOMPARE(content(), QByteArray("7\r\n").repeated(most) + "\r\n");
}

void tst_Export::cellsAsSql()
{
    const auto table =
        makeTable({{u"A"_s}, {u"count(*)"_s}},
                  {{ExactNumber{u"12345678901234567890123456789012345678.50"_s}, 0.1},
                   {u"it's"_s, QByteArray("\x1F")},
                   {NullValue{}, u"00"_s},
                   {Timestamp{2024, 3, 5}, Timestamp{2024, 3, 5, 17, 8, 9, 500'000'000}},
                   {Timestamp{0, 0, 0, 17, 8, 9}, true},
                   {u"it's"_s, 7}});
    const QString into = u"Insert into t (A,\"count(*)\") VALUES ("_s;
    QCOMPARE(insertStatements(*table, {0, 1, 2, 3, 4}, {0, 1}, u"t"_s),
             into + u"12345678901234567890123456789012345678.5,0.1);\r\n"_s + into +
                 u"'it''s',HEXTORAW('1F'));\r\n"_s + into + u"NULL,'00');\r\n"_s + into +
                 u"DATE '2024-03-05',TIMESTAMP '2024-03-05 17:08:09.500000000');\r\n"_s + into +
                 u"'17:08:09',1);\r\n"_s);
    QCOMPARE(valueList(*table, {5, 1, 2, 3}, {0}), u"('it''s',DATE '2024-03-05')"_s);
    QCOMPARE(valueList(*table, {2}, {0}), u"(NULL)"_s);
    QCOMPARE(valueList(*table, {2, 5}, {0, 1}), u"((NULL,'00'),('it''s',7))"_s);
    const auto texts = makeTable({{u"A"_s}}, {{QString(60, u'a')}, {QString(60, u'b')}});
    QCOMPARE(valueList(*texts, {0, 1}, {0}),
             u"('%1',\r\n'%2')"_s.arg(QString(60, u'a'), QString(60, u'b')));
}

QTEST_GUILESS_MAIN(tst_Export)
#include "tst_export.moc"
