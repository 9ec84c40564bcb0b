// Recordsets in memory: fabricated tables, their cells, their order and their packing.

#include "dataaccess/RowCells.h"
#include "dataaccess/rows/ValueParts.h"
#include "support/coreTest.h"

#include <cmath>

class tst_recordset : public QObject
{
    Q_OBJECT

private slots:
    void whileClosed();
    void movesThroughRows();
    void keepsEveryValue_data();
    void keepsEveryValue();
    void fieldsTakeWhatTheyAreFor();
    void rowsThatFillManyBlocks();
    void ordersRows();
    void valuesInParts();
};

namespace {

/// A table with one field that takes anything.
std::shared_ptr<Recordset> makeSingle(const QList<Value> &values = {})
{
    QList<QList<Value>> rows;
    for (const Value &value : values)
        rows.append({value});
    return makeTable({{u"V"_s}}, rows);
}

void add(Recordset &table, const Value &value)
{
    table.AddNew();
    table.setValue(0, value);
}

QString texts(Recordset &table)
{
    table.MoveFirst();
    return remainingRows(table).join(u' ');
}

} // namespace

void tst_recordset::whileClosed()
{
    Recordset table;
    for (const std::function<void()> &call : std::initializer_list<std::function<void()>>{
             [&] { table.Eof(); }, [&] { table.RecordCount(); }, [&] { table.MoveFirst(); },
             [&] { table.MoveNext(); }, [&] { table.AddNew(); }, [&] { table.value(u"V"_s); },
             [&] { table.Close(); }})
        QCOMPARE(raisedError(call), 3704);
    QCOMPARE(raisedError([&] { table.Open(); }), 3709);
    QCOMPARE(raisedError([&] { table.Open(u"select 1"_s, nullptr); }), 3709);
    QCOMPARE(raisedError([&] { table.setCacheSize(0); }), 3001);
    table.appendField(u"One"_s, adVariant);
    table.appendField(u"two"_s, adVarChar, 10);
    table.appendField(u"ONE"_s, adVariant);
    for (const QString &name : {u"One"_s, u"ONE"_s})
        QCOMPARE(raisedError([&] { table.appendField(name, adVariant); }), 3367);
    table.Open();
    QCOMPARE(table.fieldIndex(u"ONE"_s), 2);
    QCOMPARE(table.fieldIndex(u"one"_s), 0);
    QCOMPARE(table.fieldType(1), adVarChar);
    QCOMPARE(raisedError([&] { table.fieldIndex(u"three"_s); }), 3265);
    QCOMPARE(raisedError([&] { table.fieldName(3); }), 3265);
    QCOMPARE(raisedError([&] { table.appendField(u"Three"_s, adVariant); }), 3705);
    QCOMPARE(raisedError([&] { table.Open(); }), 3705);
    table.Close();
    table.Open(); // the fields outlive Close
    QCOMPARE(table.RecordCount(), 0);
}

void tst_recordset::movesThroughRows()
{
    const auto table = makeSingle();
    QVERIFY(table->Eof());
    QCOMPARE(raisedError([&] { table->MoveNext(); }), 3021);
    QCOMPARE(raisedError([&] { table->MoveFirst(); }), 3021);
    QCOMPARE(raisedError([&] { table->value(0); }), 3021);

    table->AddNew();
    QVERIFY(table->value(0).isEmpty());
    table->setValue(0, 1);
    add(*table, 2);
    table->MoveNext();
    QVERIFY(table->Eof());
    QCOMPARE(raisedError([&] { table->MoveNext(); }), 3021);
    table->MoveFirst();
    QCOMPARE(raisedError([&] { table->setValue(0, 3); }), 3251); // it was left
    QCOMPARE(texts(*table), u"1 2"_s);
    QCOMPARE(raisedError([&] { table->textAt(2, 0); }), 3021);
    QCOMPARE(raisedError([&] { table->textAt(0, 1); }), 3265);
}

void tst_recordset::keepsEveryValue_data()
{
    const DataRows<Value> row("value");
    const auto units = [](std::u16string_view text) {
        return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
    };
    row("empty", EmptyValue{});
    row("null", NullValue{});
    row("true", true);
    for (const std::int64_t number :
         {std::int64_t{0}, std::int64_t{-1}, std::int64_t{127}, std::int64_t{128},
          std::int64_t{-129}, std::numeric_limits<std::int64_t>::max(),
          std::numeric_limits<std::int64_t>::min()})
        row(qPrintable(u"integer %1"_s.arg(number)), number);
    row("double", 1.0 / 3);
    row("38 digits", ExactNumber{u"-12345678901234567890123456789012345.678"_s});
    row("no digits", ExactNumber{QString()});
    row("zeros to drop and to add", ExactNumber{u"-.14000"_s});
    row("exponent", ExactNumber{u"1.5E+125"_s});
    row("200 digits", ExactNumber{QString(200, u'7')});
    row("not a number", ExactNumber{u"Infinity"_s});
    row("date", Timestamp{2024, 2, 29, 0, 0, 0, 0});
    row("second", Timestamp{9999, 12, 31, 23, 59, 59, 0});
    row("nanosecond", Timestamp{1, 1, 1, 0, 0, 0, 999'999'999});
    row("time of day", Timestamp{0, 0, 0, 1, 2, 3, 0});
    row("no text", QString(u""_s));
    row("latin text", u"Käse ÿ"_s);
    row("191 characters", QString(191, u'x'));
    row("192 characters", QString(192, u'x'));
    row("long latin text", QString(3'000'000, u'é'));
    row("beyond the basic plane", u"a\U0001F600b"_s);
    row("lone surrogates", units(u"\xDC00 \xD83D"));
    row("zeros", units({u"\0a\0", 3}));
    row("no bytes", QByteArray(""));
    row("bytes", QByteArray("\0\xFF\x7F", 3));
}

void tst_recordset::keepsEveryValue()
{
    QFETCH(Value, value);
    const auto table = makeTable({{u"A"_s}, {u"V"_s}, {u"Z"_s}}, {});
    for (int i = 0; i < 3; ++i) {
        table->AddNew();
        table->setValue(0, i);
        table->setValue(1, value);
        table->setValue(2, u"end"_s);
        QCOMPARE(table->value(1), value); // while it is being edited
    }
    const QString text = value.toText();
    QString line = u">"_s;
    table->appendRowText(2, 0, 2, u',', line); // so is this
    table->appendRowText(0, 1, 2, u'\t', line);
    QCOMPARE(line, u">2,%1,end%1\tend"_s.arg(text));
    table->MoveFirst();
    for (int row = 0; row < 3; ++row, table->MoveNext()) {
        QCOMPARE(table->value(2), Value(u"end"_s));
        QCOMPARE(table->value(1), value);
        QCOMPARE(table->textAt(row, 1), text);
        QCOMPARE(table->textStartAt(row, 1, 3), text.left(3));
        QCOMPARE(table->isNumberAt(row, 1), value.isNumber());
        RowCells cells; // what the export writes
        ByteBuffer utf8;
        cells.takeRow(*table);
        cells.skip();
        cells.takeText(utf8);
        QCOMPARE(utf8.view().toByteArray(), text.toUtf8());
    }
}

void tst_recordset::fieldsTakeWhatTheyAreFor()
{
    const QList<TableColumn> two = {{u"A"_s}, {u"B"_s}};
    const auto source = makeTable(two, {{NullValue{}, ExactNumber{u"1.50"_s}}});
    for (const auto &copy :
         {makeTable(two, {}), makeTable({{u"A"_s, adVarChar}, {u"B"_s, adVarChar}}, {})}) {
        copy->addNewFrom(*source);
        copy->addNewFrom(*source);
        QCOMPARE(copy->RecordCount(), 2);
        QCOMPARE(copy->value(0), Value(QString(u""_s)));
        QCOMPARE(copy->value(1).toText(), u"1.5"_s);
    }
    QCOMPARE(raisedError([&] { makeSingle()->addNewFrom(*source); }), 3001);
    source->MoveNext();
    QCOMPARE(raisedError([&] { source->addNewFrom(*source); }), 3021);

    const auto limited = makeTable({{u"T"_s, adVarChar, 5}, {u"D"_s, adVarChar, 1000}},
                                   // A date becomes the field's text.
                                   {{u"12345"_s, Timestamp{2026, 9, 1, 13, 5, 9, 0}}});
    QCOMPARE(raisedError([&] { limited->setValue(0, u"123456"_s); }), -2147217887);
    QCOMPARE(limited->value(0), Value(u"12345"_s));
    QCOMPARE(limited->value(1), Value(u"9/1/2026 13:05:09"_s));
}

void tst_recordset::rowsThatFillManyBlocks()
{
    constexpr int rows = 60'000;
    const auto table = makeSingle();
    qint64 textLength = 0;
    const auto textOf = [](int row) { return QString(row % 300, u'a') + QString::number(row); };
    for (int row = 0; row < rows; ++row) {
        add(*table, textOf(row));
        textLength += textOf(row).size();
    }
    QCOMPARE(table->RecordCount(), rows);
    for (int row = rows - 1; row >= 0; row -= 7)
        QCOMPARE(table->textAt(row, 0), textOf(row));
    QVERIFY(table->storedBytes() < textLength * 13 / 10);
}

void tst_recordset::ordersRows()
{
    const QString equal(3000, u'e');
    QList<Value> ascending = {false, true};
    // Those with a sign before them are exact.
    const auto numbers =
        u"#-12345678901234567890123456789012345678.5 "
        "#-12345678901234567890123456789012345678 -1.25 -1 #-.05 0 #1E-200 2.5e-10 "
        "#0.0500 9 #9.5 10.25 9007199254740993 #9007199254740993.5 "
        "#12345678901234567890123456789012345677 "
        "#12345678901234567890123456789012345678 1e200"_s;
    for (const QString &number : numbers.split(u' ')) {
        if (number.startsWith(u'#'))
            ascending.append(ExactNumber{number.sliced(1)});
        else if (number.contains(u'.') || number.contains(u'e'))
            ascending.append(number.toDouble());
        else
            ascending.append(std::int64_t{number.toLongLong()});
    }
    ascending += {Timestamp{-44, 3, 15}, Timestamp{2024, 3, 5}, Timestamp{2024, 3, 5, 0, 0, 0, 1},
                  Timestamp{2024, 3, 5, 0, 0, 0, 256}, Timestamp{2024, 10, 1}};
    for (const QString &text :
         {u"10"_s, u"9"_s, u"B"_s, u"a"_s, u"a"_s + QChar(u'\0'), u"a b"_s, equal, equal + u"a"_s,
          equal + u"b"_s, equal + u"\u0416"_s, u"\u00e4"_s, u"\uff5e"_s, u"\U0001F600"_s})
        ascending.append(text);
    ascending += {QByteArray("\x7F"), QByteArray("\x80")};
    const auto count = static_cast<int>(ascending.size());
    constexpr int copies = 100;
    QList<QList<Value>> rows;
    for (int i = 0; i < copies * count; ++i)
        rows.append({i, ascending[i * 7 % count]});
    rows.insert(3, {-1, NullValue{}});
    rows.insert(9, {-1, u""_s});
    const auto table = makeTable({{u"N"_s}, {u"V"_s}}, rows);
    const auto sorted = makeTable({{u"N"_s}, {u"V"_s}}, rows);

    for (const bool descending : {false, true}) {
        const std::vector<int> ordered = table->rowsOrderedBy(1, descending);
        const QList<int> order(ordered.begin(), ordered.end());
        for (int i = 0; i < count; ++i) {
            const Value &expected = ascending[descending ? count - 1 - i : i];
            const QList<int> equals = order.mid(copies * i, copies);
            for (const int row : equals)
                QCOMPARE(table->valueAt(row, 1), expected);
            QVERIFY(std::is_sorted(equals.begin(), equals.end()));
        }
        QCOMPARE(order.mid(copies * count), QList<int>({3, 9}));
        sorted->sort(1, descending);
        for (size_t row = 0; row < ordered.size(); ++row)
            QCOMPARE(sorted->textAt(static_cast<qint64>(row), 0), table->textAt(ordered[row], 0));
    }
    add(*sorted, u"later"_s);
    QCOMPARE(sorted->textAt(sorted->RecordCount() - 1, 0), u"later"_s);
    sorted->MoveFirst();
    QCOMPARE(sorted->value(1), ascending.last());
    for (const int field : {-1, 2}) {
        QCOMPARE(raisedError([&] { table->rowsOrderedBy(field, false); }), 3265);
        QCOMPARE(raisedError([&] { table->sort(field, false); }), 3265);
    }
    const auto plain = makeSingle({2, -0.0, 1e300, -3, 0, -3.5, 1.75, std::nan(""), 2.0});
    QCOMPARE(plain->rowsOrderedBy(0, false), std::vector<int>({5, 3, 1, 4, 6, 0, 8, 2, 7}));
}

void tst_recordset::valuesInParts()
{
    constexpr qsizetype size = ValueParts::partSize;
    const QString before(size - 1, u'x');
    for (const auto &[text, firstSize] : {std::pair(before, size - 1),
                                          {before + u"\r\n"_s, size - 1},
                                          {before + u"\r\r"_s, size},
                                          {before + u"\U0001F600"_s, size - 1},
                                          {QString(), 0}}) {
        const ValueParts parts{Value(text)};
        QString all;
        for (qsizetype part = 0; part < parts.count(); ++part)
            all += parts.part(part);
        QCOMPARE(parts.part(0).size(), firstSize);
        QCOMPARE(all, text);
    }
    const ValueParts bytes{Value(QByteArray(size, 'A'))};
    QCOMPARE(bytes.wholeText(), u"41"_s.repeated(size));
    QCOMPARE(bytes.sizeText(), u"65,536 bytes"_s);
    QString lines = bytes.part(0);
    for (qsizetype part = 1; part < bytes.count(); ++part)
        lines += u'\n' + bytes.part(part);
    QCOMPARE(lines.count(u'\n'), size / 16 - 1);
    QVERIFY(lines.endsWith(u"0000FFF0 "_s + u" 41"_s.repeated(16) + u"  "_s + QString(16, u'A')));
}

QTEST_APPLESS_MAIN(tst_recordset)
#include "tst_recordset.moc"
