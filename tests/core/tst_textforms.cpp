#include "platform/numberForms.h"
#include "platform/textForms.h"
#include "support/raisedError.h"

#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;

class tst_TextForms : public QObject
{
    Q_OBJECT

private slots:
    void dateTimes_data();
    void dateTimes();
    void readingDateTimes_data();
    void readingDateTimes();
    void dayMonthYears();
    void doubles_data();
    void doubles();
    void exactNumbers_data();
    void exactNumbers();
    void integers_data();
    void integers();
    void refusedIntegers_data();
    void refusedIntegers();
    void properCases_data();
    void properCases();
    void blanks();
};

void tst_TextForms::dateTimes_data()
{
    QTest::addColumn<QDateTime>("dateTime");
    QTest::addColumn<QString>("text");
    const QDate day(2024, 3, 5);
    QTest::newRow("no padding of month and day")
        << QDateTime(day, QTime(7, 8, 9)) << u"3/5/2024 07:08:09"_s;
    QTest::newRow("midnight") << QDateTime(day, QTime(0, 0)) << u"3/5/2024"_s;
    QTest::newRow("fraction after midnight")
        << QDateTime(day, QTime(0, 0, 0, 999)) << u"3/5/2024"_s;
    QTest::newRow("end of year") << QDateTime(QDate(1999, 12, 31), QTime(23, 59, 59, 999))
                                 << u"12/31/1999 23:59:59"_s;
    QTest::newRow("early year") << QDateTime(QDate(7, 1, 1), QTime(0, 1)) << u"1/1/0007 00:01:00"_s;
    QTest::newRow("before the common era")
        << QDateTime(QDate(-44, 3, 15), QTime(0, 0)) << u"3/15/-0044"_s;
    QTest::newRow("none") << QDateTime() << QString();
}

void tst_TextForms::dateTimes()
{
    QFETCH(QDateTime, dateTime);
    QTEST(dateTimeToText(dateTime), "text");
}

void tst_TextForms::readingDateTimes_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("form"); // empty: refused
    QTest::newRow("date") << u"2/29/2024"_s << u"2/29/2024"_s;
    QTest::newRow("time") << u"2/29/2024 13:05:59"_s << u"2/29/2024 13:05:59"_s;
    QTest::newRow("blanks around") << u"  2/29/2024 13:05:59 "_s << u"2/29/2024 13:05:59"_s;
    QTest::newRow("leading zeros") << u"02/09/2024 3:05:00"_s << u"2/9/2024 03:05:00"_s;
    QTest::newRow("no seconds") << u"2/29/2024 13:05"_s << u"2/29/2024 13:05:00"_s;
    QTest::newRow("an hour that clocks skip") << u"3/31/2024 02:30:00"_s << u"3/31/2024 02:30:00"_s;
    for (const char *refused : {"",
                                " ",
                                "abc",
                                "2/30/2020",
                                "1.2.2020",
                                "2/29/2023",
                                "13/1/2024",
                                "0/1/2024",
                                "1/1/24",
                                "1/1/20245",
                                "1/1",
                                "1/1/2024 24:00:00",
                                "1/1/2024 1:60",
                                "1/1/2024 1:2:3",
                                "1/1/2024 12",
                                "1/1/2024 12:00:00 PM",
                                "1/1/2024  12:00:00",
                                "1/1/2024\t12:00:00",
                                "12:00:00",
                                "-1/1/2024",
                                "1/1/2024x",
                                "99999999999/1/2024"}) {
        QTest::newRow(QByteArray("refused: ") + refused) << QString::fromUtf8(refused) << QString();
    }
}

void tst_TextForms::readingDateTimes()
{
    QFETCH(QString, text);
    QFETCH(QString, form);
    if (form.isEmpty())
        QCOMPARE(raisedError([&] { textToClockTime(text); }), ErrorNumber::TypeMismatch);
    else
        QCOMPARE(dateTimeForm(textToClockTime(text)).toString(), form);
}

void tst_TextForms::dayMonthYears()
{
    const auto form = [](int year, int month, int day) {
        return dayMonthYearForm({.year = year, .month = month, .day = day}).toString();
    };
    QCOMPARE(form(2024, 3, 5), u"05-Mar-2024"_s);
    QCOMPARE(form(987, 12, 31), u"31-Dec-0987"_s);
    QCOMPARE(form(0, 0, 0), QString());
}

void tst_TextForms::doubles_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");
    const auto row = [](double value, const char *text) {
        QTest::newRow(text) << value << QString::fromUtf8(text);
    };
    row(0, "0");
    row(-0.0, "0");
    row(1, "1");
    row(-1.5, "-1.5");
    row(250, "250");
    row(0.1, "0.1");
    row(0.1 + 0.2, "0.3");
    row(1.0 / 3, "0.333333333333333");
    row(1.0 / 30, "3.33333333333333E-02");
    row(200.0 / 3, "66.6666666666667");
    row(0.00001, "0.00001");
    row(1e-15, "0.000000000000001");
    row(1e-16, "1E-16");
    row(0.000123456789012345, "1.23456789012345E-04");
    row(1e14, "100000000000000");
    row(123456789012345, "123456789012345");
    row(12345678901234.5, "12345678901234.5");
    row(1e15, "1E+15");
    row(-1234567890123456, "-1.23456789012346E+15");
    row(999999999999999.9, "1E+15");
    row(1e100, "1E+100");
    row(std::numeric_limits<double>::denorm_min(), "4.94065645841247E-324");
    row(std::numeric_limits<double>::infinity(), "Inf");
    row(-std::numeric_limits<double>::infinity(), "-Inf");
    row(std::numeric_limits<double>::quiet_NaN(), "NaN");
}

void tst_TextForms::doubles()
{
    QFETCH(double, value);
    QTEST(doubleToText(value), "text");
}

void tst_TextForms::exactNumbers_data()
{
    QTest::addColumn<QString>("digits");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *digits, const char *text) {
        QTest::newRow(digits) << QString::fromUtf8(digits) << QString::fromUtf8(text);
    };
    row("1.50", "1.5");
    row(".5", "0.5");
    row("-.50", "-0.5");
    row("100", "100");
    row("100.00", "100");
    row("5.", "5");
    row("0.0", "0");
    row(".0", "0");
    row("12345678901234567890123456789012345678", "12345678901234567890123456789012345678");
    row("-0.10000000000000000000000000000000000010", "-0.1000000000000000000000000000000000001");
    row("", "");
    row(".", ".");
    row("-", "-");
    row("1.5.0", "1.5.0");
    row("1E+40", "1E+40");
    row("abc.0", "abc.0");
}

void tst_TextForms::exactNumbers()
{
    QFETCH(QString, digits);
    QTEST(exactNumberToText(digits), "text");
    ByteBuffer utf8;
    utf8.append('=');
    appendExactNumber(digits.toUtf8(), utf8);
    QTEST(QString::fromUtf8(utf8.view()).sliced(1), "text");
}

void tst_TextForms::integers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("value");
    const auto row = [](const char *text, int value) {
        QTest::newRow(text) << QString::fromUtf8(text) << value;
    };
    row("0", 0);
    row("42", 42);
    row("2.5", 2);
    row("3.5", 4);
    row("2.50001", 3);
    row("2.4999", 2);
    row("-2.5", -2);
    row("-3.5", -4);
    row("0.5", 0);
    row("0.05", 0);
    row("0.6", 1);
    row("99.5", 100);
    row("\t 5 \r\n", 5);
    row("5-", -5);
    row("5 -", -5);
    row("- 5", -5);
    row("+5", 5);
    row("(5)", -5);
    row("($1,000)", -1000);
    row("$5", 5);
    row("-$5", -5);
    row("1,000", 1000);
    row("1e3", 1000);
    row("1.5E+3", 1500);
    row("25e-1", 2);
    row("0.0000025e6", 2);
    row("000000000000000000001", 1);
    row("0e999999999999999999999", 0);
    row("1e-999999999999999999999", 0);
    row("&H10", 16);
    row("&hff", 255);
    row("&HFFFFFFFF", -1);
    row("&O10", 8);
    row(".5", 0);
    row("5.", 5);
    row("2147483647.4", 2147483647);
    row("-2147483648.5", std::numeric_limits<int>::min());
}

void tst_TextForms::integers()
{
    QFETCH(QString, text);
    QTEST(textToInteger(text), "value");
}

void tst_TextForms::refusedIntegers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("error");
    for (const char *text : {"",
                             " ",
                             ".",
                             "abc",
                             "12abc",
                             "50%",
                             "1e",
                             "1e+",
                             "e1",
                             "1e1.5",
                             "--5",
                             "-5-",
                             "(-5)",
                             "(5",
                             "5)",
                             "()",
                             "$",
                             "$$5",
                             ",5",
                             "1 2",
                             "1.5.2",
                             "&H",
                             "&HG",
                             "&O8",
                             "&X1",
                             "&10",
                             "0x10",
                             "1/2",
                             "\xc2\xa0"
                             "5"})
        QTest::newRow(QByteArray("no number: ") + text)
            << QString::fromUtf8(text) << ErrorNumber::TypeMismatch;
    for (const char *text :
         {"2147483648", "-2147483649", "2147483647.5", "1e10", "99999999999999999999",
          "1e999999999999999999999", "&H100000000", "&HFFFFFFFFFFFFFFFFFFFF"})
        QTest::newRow(QByteArray("too large: ") + text)
            << QString::fromUtf8(text) << ErrorNumber::Overflow;
}

void tst_TextForms::refusedIntegers()
{
    QFETCH(QString, text);
    QTEST(raisedError([&] { textToInteger(text); }), "error");
}

void tst_TextForms::properCases_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("proper");
    QTest::newRow("statement") << u"select EMP_NAME from emp"_s << u"Select Emp_name From Emp"_s;
    QTest::newRow("apostrophe") << u"o'NEIL"_s << u"O'neil"_s;
    QTest::newRow("hyphen and point") << u"a-b c.d"_s << u"A-b C.d"_s;
    QTest::newRow("separators") << u"a\tb\nc\vd\fe\rf\0g"_s << u"A\tB\nC\vD\fE\rF\0G"_s;
    QTest::newRow("digit begins a word") << u"1ST 2nd"_s << u"1st 2nd"_s;
    QTest::newRow("accents") << u"ÉTÉ élan ß"_s << u"Été Élan ß"_s;
    QTest::newRow("none") << QString() << QString();
}

void tst_TextForms::properCases()
{
    QFETCH(QString, text);
    QTEST(properCase(text), "proper");
}

void tst_TextForms::blanks()
{
    QCOMPARE(trimBlanks(u"  a b  "), u"a b"_s);
    QCOMPARE(trimBlanks(u" \t a\u00a0 \r\n "), u"\t a\u00a0 \r\n"_s);
    QCOMPARE(trimBlanks(u"   "), QString());
}

QTEST_GUILESS_MAIN(tst_TextForms)
#include "tst_textforms.moc"
