#include "platform/numberForms.h"
#include "platform/textForms.h"
#include "sqltext/sqlTexts.h"
#include "support/coreTest.h"

#include <bit>
#include <cmath>

class tst_TextForms : public QObject
{
    Q_OBJECT

private slots:
    void forms_data();
    void forms() { compareTextRow(); }
    void integers_data();
    void integers() { compareTextRow(); }
    void oddDates();
    void randomNumbers();
};

namespace {

QString exactNumber(const QString &digits)
{
    ByteBuffer text;
    text.append('=');
    appendExactNumber(digits.toUtf8(), text);
    return QString::fromUtf8(text.view()).sliced(1);
}

QString elapsed(const QString &startAndEnd)
{
    const auto time = [&](int place) {
        return QTime::fromString(startAndEnd.section(u' ', place, place), Qt::ISODateWithMs);
    };
    return elapsedText(elapsedSeconds(time(0), time(1)));
}

} // namespace

void tst_TextForms::forms_data()
{
    addTextColumns();
    addTextRows(
        "date to text",
        [](const QString &text) {
            return dateTimeToText(QDateTime::fromString(text, Qt::ISODateWithMs));
        },
        u"2024-03-05T07:08:09→3/5/2024 07:08:09|2024-03-05T00:00:00→3/5/2024|"
        "2024-03-05T00:00:00.999→3/5/2024|1999-12-31T23:59:59.999→12/31/1999 23:59:59|"
        "0007-01-01T00:01:00→1/1/0007 00:01:00|→"_s);
    addTextRows(
        "text to date", [](const QString &text) { return timestampToText(textToTimestamp(text)); },
        u"2/29/2024→2/29/2024|2/29/2024 13:05→2/29/2024 13:05:00|"
        "2/29/2024 13:05:59|  2/29/2024 13:05:59 →2/29/2024 13:05:59|"
        "02/09/2024 3:05:00→2/9/2024 03:05:00|"
        // An hour that clocks skip.
        "3/31/2024 02:30:00→3/31/2024 02:30:00|"
        "| |abc|2/30/2020|1.2.2020|13/1/2024|0/1/2024|1/1/24|1/1/20245|1/1|12:00:00|-1/1/2024|"
        "1/1/2024x|99999999999/1/2024|1/1/2024 24:00:00|1/1/2024 1:60|1/1/2024 1:2:3|"
        "1/1/2024 12|1/1/2024 12:00:00 PM|1/1/2024  12:00:00|1/1/2024\t12:00:00→error 13"_s);
    addTextRows(
        "double", [](const QString &text) { return doubleToText(text.toDouble()); },
        u"0|-0→0|-1.5→-1.5|250→250|0.30000000000000004→0.3|0.3333333333333333→0.333333333333333|"
        "66.66666666666667→66.6666666666667|0.03333333333333333→3.33333333333333E-02|"
        "1e-5→0.00001|1e-15→0.000000000000001|1e-16→1E-16|"
        "0.000123456789012345→1.23456789012345E-04|"
        "1e14→100000000000000|123456789012345→123456789012345|12345678901234.5→12345678901234.5|"
        "1e15|999999999999999.9→1E+15|-1234567890123456→-1.23456789012346E+15|1e100→1E+100|"
        "5e-324→4.94065645841247E-324|inf→Inf|-inf→-Inf|nan→NaN"_s);
    const QString exactNumbers =
        u"1.50→1.5|.5→0.5|-.50→-0.5|100|100.00→100|5.→5|0.0|.0→0|"
        "12345678901234567890123456789012345678→12345678901234567890123456789012345678|"
        "-0.10000000000000000000000000000000000010→-0.1000000000000000000000000000000000001|"
        "→|.→.|-→-|1.5.0→1.5.0|1E+40→1E+40|abc.0→abc.0"_s;
    addTextRows("exact number", exactNumber, exactNumbers);
    addTextRows(
        "proper case", properCase,
        u"select EMP_NAME from emp→Select Emp_name From Emp|o'NEIL→O'neil|a-b c.d→A-b C.d|"
        "a\tb\nc\vd\fe\rf\0g→A\tB\nC\vD\fE\rF\0G|1ST 2nd→1st 2nd|ÉTÉ élan ß→Été Élan ß|→"_s);
    addTextRows("elapsed", elapsed,
                u"12:00:00 12:00:00→0 msec|12:00:00 12:00:00.250→250 msec|"
                "11:59:59.900 12:00:00.300→400 msec|12:00:00 12:00:00.999→999 msec|"
                "12:00:00 12:00:01→1 sec|12:00:00 12:00:01.500→1.5 sec|"
                "12:00:00 21:05:59.007→32759.007 sec|23:59:59.900 00:00:00.100→-86399800 msec|"
                "00:00:00 09:06:07.999→32767.999 sec|00:00:00 10:00:00→error 6"_s);
    addTextRows("trimmed", trimBlanks, u"  a b  →a b| \t a\u00a0 \r\n →\t a\u00a0 \r\n|   →"_s);
}

void tst_TextForms::integers_data()
{
    addTextColumns();
    addTextRows(
        "integer", [](const QString &text) { return QString::number(textToInteger(text)); },
        u"2.5→2|3.5→4|2.50001→3|2.4999→2|-2.5→-2|-3.5→-4|0.5|0.05|.5→0|0.6→1|99.5→100|5.→5|"
        "\t 5 \r\n|+5|5+→5|5-→-5|1,000|1e3→1000|1.5E+3→1500|25e-1→2|0.0000025e6→2|"
        "000000000000000000001→1|0e999999999999999999999→0|"
        "2147483647.4→2147483647|-2147483648.5→-2147483648|"
        "| |.|abc|12abc|50%|1e|1e+|e1|1e1.5|--5|-5-|(5)|$5|,5|1,00|1 2|1.5.2|&H10|0x10|1/2|inf|"
        "nan→error 13|"
        "2147483648|-2147483649|2147483647.5|1e10|99999999999999999999|1e999999999999999999999|"
        "1e400-→error 6"_s);
}

void tst_TextForms::oddDates()
{
    QCOMPARE(dateTimeToText(QDateTime(QDate(-44, 3, 15), QTime(0, 0))), u"3/15/-0044"_s);
    QCOMPARE(timestampToText({.year = 1, .month = 1, .day = 1, .nanosecond = 500'000'000}),
             u"1/1/0001 00:00:00.5"_s);
    const auto dayMonthYear = [](qint16 year, quint8 month, quint8 day) {
        ByteBuffer text;
        appendDayMonthYear({.year = year, .month = month, .day = day}, text);
        return QString::fromLatin1(text.view());
    };
    QCOMPARE(dayMonthYear(2024, 3, 5), u"05-Mar-2024"_s);
    QCOMPARE(dayMonthYear(987, 12, 31), u"31-Dec-0987"_s);
    QCOMPARE(dayMonthYear(32767, 1, 1), u"01-Jan-32767"_s);
    QCOMPARE(dayMonthYear(0, 0, 0), QString());
}

// What is written is what the C library writes with 15 digits, and is read as it should be.
void tst_TextForms::randomNumbers()
{
    QRandomGenerator random(20240305);
    for (int run = 0; run < 20'000; ++run) {
        const quint64 bits = random.generate64();
        const auto value = std::bit_cast<double>(bits);
        const QString text = doubleToText(value);
        if (std::isfinite(value))
            QCOMPARE(text.toDouble(), QString::asprintf("%.14e", value).toDouble());
        QVERIFY(text.size() <= 24);

        const int whole = static_cast<qint32>(bits) / 2;
        for (const auto &[half, expected] :
             {std::pair(".499", 0), {".5", whole % 2}, {".0", 0}, {".501", 1}}) {
            const QString number = QString::number(qAbs(whole)) + QLatin1StringView(half);
            QCOMPARE(textToInteger(number), qAbs(whole) + qAbs(expected));
        }

        QString digits = QString::number(bits).insert(int(bits % 20), u'.') + u"00"_s;
        const QString form = exactNumber(digits);
        QCOMPARE(exactNumber(form), form);
    }
}

QTEST_GUILESS_MAIN(tst_TextForms)
#include "tst_textforms.moc"
