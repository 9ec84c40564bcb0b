#include "sqltext/ReplaceAll.h"
#include "support/DataRows.h"
#include "support/textRows.h"

#include <QRandomGenerator>

using namespace Qt::StringLiterals;

namespace {

/// The rule word for word: search from the beginning, replace, and so again. Gives up after
/// @p most times.
QString replaceLiterally(QString text, const QString &find, const QString &replacement, int most)
{
    for (; most > 0; --most) {
        const qsizetype found = text.indexOf(find);
        if (found < 0)
            break;
        text = text.left(found) + replacement + text.mid(found + find.size());
    }
    return text;
}

QString randomText(QRandomGenerator &random, int shortest, int longest)
{
    const int letters = random.bounded(1, 4);
    QString text;
    for (int n = random.bounded(shortest, longest + 1); n > 0; --n)
        text += QChar(u'a' + random.bounded(letters));
    return text;
}

QString wholeReplacement(const QString &text, const QString &find, const QString &replacement)
{
    ReplaceAll work(text, find, replacement);
    while (!work.advance(1000)) {
    }
    return work.text();
}

} // namespace

class tst_replaceall : public QObject
{
    Q_OBJECT
private slots:
    void namedCases_data();
    void namedCases() { compareTextRow(); }
    void agreesWithTheLiteralLoop();
    void endlessOneGoesOn();
    void largeTexts_data();
    void largeTexts();
};

void tst_replaceall::namedCases_data()
{
    addTextColumns();
    const auto replaced = [](const QString &textFindAndReplacement) {
        const QStringList parts = textFindAndReplacement.split(u' ');
        return wholeReplacement(parts[0], parts[1], parts[2]);
    };
    addTextRows("each letter", replaced, u"banana a b→bbnbnb"_s);
    addTextRows("across the border, backwards", replaced, u"aabb ab a→aa"_s);
    addTextRows("letter case counts", replaced, u"Aa a b→Ab"_s);
    addTextRows("beyond the basic plane", replaced, u"x😀y😀 😀 z→xzyz"_s);
}

// Not only the ends are compared but every text on the way, and the endless ones as far as they
// are followed.
void tst_replaceall::agreesWithTheLiteralLoop()
{
    QRandomGenerator random(20240305);
    for (int round = 0; round < 30000; ++round) {
        const QString text = randomText(random, 0, 14);
        const QString find = randomText(random, 1, 4);
        const QString replacement = randomText(random, 0, 5);
        const int most = random.bounded(1, 40);

        ReplaceAll work(text, find, replacement);
        const bool done = work.advance(most);
        const QString expected = replaceLiterally(text, find, replacement, most);

        const QString label = u"%1: %2 by %3, %4 times"_s.arg(text, find, replacement).arg(most);
        QVERIFY2(work.text() == expected, qPrintable(label));
        QVERIFY2(work.length() == expected.size(), qPrintable(label));
        QVERIFY2(!done || !expected.contains(find), qPrintable(label));
        QVERIFY2(done || work.replaced() == most, qPrintable(label));
    }
}

void tst_replaceall::endlessOneGoesOn()
{
    ReplaceAll work(u"banana"_s, u"a"_s, u"aa"_s);
    for (int portion = 1; portion <= 100; ++portion) {
        QVERIFY(!work.advance(1000));
        QCOMPARE(work.length(), 6 + portion * 1000);
    }
    QCOMPARE(work.text(), u"b"_s + QString(100001, u'a') + u"nana"_s);
}

void tst_replaceall::largeTexts_data()
{
    const DataRows<QString, QString, QString> row("unit", "find", "replacement");
    row("plain hits", u"select ename from employees where empno = :value_number "_s, u"empno"_s,
        u"number"_s);
    row("hits across borders", u"ab"_s, u"ab"_s, u"a"_s);
    row("run shrinking", u"a"_s, u"aa"_s, u"a"_s);
    row("near misses", u"aaaaaaaaaaaaaaaaaaaaaaab"_s, u"aaaaaaaaaaaaaaaab"_s, u"b"_s);
}

// 5 million characters: a search from the beginning each time would take minutes to hours.
void tst_replaceall::largeTexts()
{
    QFETCH(QString, unit);
    QFETCH(QString, find);
    QFETCH(QString, replacement);
    const QString text = unit.repeated(5'000'000 / unit.size());
    QVERIFY(!wholeReplacement(text, find, replacement).contains(find));
}

QTEST_GUILESS_MAIN(tst_replaceall)
#include "tst_replaceall.moc"
