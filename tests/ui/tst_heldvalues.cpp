#include "export/exportFormats.h"
#include "uisupport/ProgramFixture.h"

/// What the server holds is what grid, copy and export show: nothing is cut, nothing is rounded
/// away in silence.
class TestHeldValues : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void cleanupTestCase();
    void values_data();
    void values();
    void longText();
    void truthValueBehindNull();

private:
    void showsEverywhere(const QString &expected);

    std::unique_ptr<ProgramFixture> m_program;
};

namespace {

/// A query's only value by way of its bytes in the server, which no driver touches.
QString asTheServerWritesIt(const QString &expression)
{
    const QString hex = SandboxFixture::scalar(
        SandboxFixture::open(),
        u"select hex(convert(%1 using utf8mb4)) from held"_s.arg(expression));
    // A mark at the beginning would be taken for a file's.
    return QString::fromUtf8('x' + QByteArray::fromHex(hex.toLatin1())).mid(1);
}

const QString smile = u"\U0001F600"_s;

} // namespace

void TestHeldValues::initTestCase()
{
    SandboxFixture::useSharedFolder();
    m_program = std::make_unique<ProgramFixture>();
    m_program->start(SandboxFixture::connectionString());
    const auto connection = SandboxFixture::open();
    connection->Execute(u"create or replace table held (exact decimal(38,10), fraction "
                        "decimal(38,38), large bigint, largest bigint unsigned, early date, late "
                        "datetime(6), past time(6), single float, flag bit(1), bits bit(64), bytes "
                        "varbinary(300), faces "
                        "varchar2(20), mixed varchar2(20))"_s);
    connection->Execute(
        u"insert into held values (1234567890123456789012345678.0123456789, "
        "-0.00000000000000000000000000000000000001, -9223372036854775808, 18446744073709551615, "
        "'1000-01-01', '9999-12-31 23:59:59.999999', '-838:59:59.5', 0.1, 1, 18446744073709551615, "
        "unhex(repeat('00ff0a', 100)), repeat('%1', 20), 'Käse 15 €\t%1')"_s.arg(smile));
    connection->Execute(u"insert into held select * from held"_s);
}

void TestHeldValues::cleanupTestCase()
{
    m_program.reset();
    SandboxFixture::open()->Execute(u"drop table held"_s);
}

/// Of equal rows whose second column is looked at.
void TestHeldValues::showsEverywhere(const QString &expected)
{
    DataGrid *grid = m_program->grid();
    const int rows = m_program->rows();
    QVERIFY(rows > 0);
    for (int row = 0; row < rows; ++row) {
        QCOMPARE(m_program->cell(row, 1).left(300), expected.left(300));
        grid->selectionModel()->select(grid->model()->index(row, 1),
                                       QItemSelectionModel::ClearAndSelect);
        QCOMPARE(grid->SelText(), expected);
    }
    const QByteArray line = "1|" + expected.toUtf8() + "|end\r\n";
    const QString path = m_program->folder() + u"/export"_s;
    writeDelimited(*m_program->editor()->rsResult(), path, u"|"_s);
    QCOMPARE(contentOf(path), line.repeated(rows));
}

void TestHeldValues::values_data()
{
    QTest::addColumn<QString>("expression");
    QTest::addColumn<QString>("text"); // how the server is to write it in this program's form
    const auto row = [](const char *expression, const QString &text = {}) {
        QTest::newRow(expression) << QString::fromLatin1(expression)
                                  << (text.isEmpty() ? QString::fromLatin1(expression) : text);
    };
    row("exact");
    row("largest");
    row("early", u"date_format(early, '%c/%e/%Y')"_s);
    row("late", u"date_format(late, '%c/%e/%Y %H:%i:%s.%f')"_s);
    row("past");
    row("cast('12:34:56.5' as time(1))");
    row("cast('0000-00-00' as date)", u"''"_s); // null, as the server says
    row("flag", u"'True'"_s);
    row("bits", u"hex(bits)"_s);
    row("bytes", u"hex(bytes)"_s);
    row("faces");
    row("mixed");
    // Half a character can be typed, but no server takes it: it arrives as the sign for that.
    QTest::newRow("half a character") << u"'a"_s + QChar(0xD83D) + u"b'"_s << u"'a\uFFFDb'"_s;
    row("concat('x', chr(0), 'y')");
    row("convert(unhex('efbbbf61') using utf8mb4)"); // what marks a file is a character here
    row("cast(99999999999999999999999999999999999999999999999999999999999999999 as decimal(65))");
    // Doubles have fifteen digits here.
    row("1.7976931348623157e308", u"'1.79769313486232E+308'"_s);
    row("single", u"'0.1'"_s);
}

void TestHeldValues::values()
{
    QFETCH(QString, expression);
    QFETCH(QString, text);
    MessageAnswers messages;
    m_program->run(u"select 1, %1, 'end' from held"_s.arg(expression));
    QVERIFY2(messages.texts.isEmpty(), qPrintable(messages.texts.join(u'|')));
    showsEverywhere(asTheServerWritesIt(text));
}

// 64 MB, all of it beyond the basic plane.
void TestHeldValues::longText()
{
    constexpr int count = 16 * 1024 * 1024;
    m_program->run(u"select 1, repeat('%1', %2), 'end' from held limit 1"_s.arg(smile).arg(count));
    showsEverywhere(smile.repeated(count));
}

// The driver tells the length of a null only. With a long text the rows come one by one.
void TestHeldValues::truthValueBehindNull()
{
    m_program->run(u"select flag, repeat('x', 70000) from (select 1 n, flag from held union all "
                   "select 2, null union all select 3, flag from held) t order by n"_s);
    DataGrid *grid = m_program->grid();
    grid->selectColumn(0);
    QCOMPARE(grid->SelText(), u"True\r\nTrue\r\n\r\nTrue\r\nTrue"_s);
}

QTEST_MAIN(TestHeldValues)
#include "tst_heldvalues.moc"
