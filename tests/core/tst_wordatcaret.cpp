#include "sqltext/wordAtCaret.h"

#include <QTest>

using namespace Qt::StringLiterals;

/// The rules for keys, for the word at the caret and for the classes of words.
class tst_WordAtCaret : public QObject
{
    Q_OBJECT
private slots:
    void keyClasses_data();
    void keyClasses();
    void wordsAtCaret_data();
    void wordsAtCaret();
    void keywordGroups_data();
    void keywordGroups();
    void everyWordIsInItsClass();
    void groupEndsAtItsFirstEmptyEntry();
};

void tst_WordAtCaret::keyClasses_data()
{
    QTest::addColumn<int>("keyCode");
    QTest::addColumn<int>("shift");
    QTest::addColumn<int>("expected");

    QTest::newRow("blank") << 32 << 0 << 1;
    QTest::newRow("blank with everything") << 32 << 7 << 1;
    QTest::newRow("tab") << 9 << 1 << 2;
    QTest::newRow("opening parenthesis") << 57 << 1 << 3;
    QTest::newRow("nine") << 57 << 0 << 0;
    QTest::newRow("Ctrl+Shift+9") << 57 << 3 << 0;
    QTest::newRow("closing parenthesis") << 48 << 1 << 4;
    QTest::newRow("zero with Alt and Shift") << 48 << 5 << 0;
    QTest::newRow("Enter") << 13 << 2 << 5;
    QTest::newRow("Backspace") << 8 << 0 << 6;
    QTest::newRow("Delete") << 46 << 0 << 7;
    QTest::newRow("eight") << 56 << 1 << 0;
    QTest::newRow("nothing known") << 0 << 1 << 0;
}

void tst_WordAtCaret::keyClasses()
{
    QFETCH(int, keyCode);
    QFETCH(int, shift);
    QTEST(static_cast<int>(keyClass(keyCode, shift)), "expected");
}

void tst_WordAtCaret::wordsAtCaret_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("caret");
    QTest::addColumn<KeyClass>("lastKey");
    QTest::addColumn<QString>("word");
    QTest::addColumn<int>("start");

    QTest::newRow("empty text") << u""_s << 0 << KeyClass::Other << u""_s << 1;
    QTest::newRow("empty text, blank") << u""_s << 0 << KeyClass::Blank << u""_s << 1;
    QTest::newRow("behind the word") << u"select"_s << 6 << KeyClass::Other << u"select"_s << 1;
    QTest::newRow("inside the word") << u"a select b"_s << 4 << KeyClass::Other << u"select"_s << 3;
    QTest::newRow("before the word") << u"a select"_s << 2 << KeyClass::Other << u"select"_s << 3;
    QTest::newRow("blank typed") << u"select "_s << 7 << KeyClass::Blank << u"select"_s << 1;
    QTest::newRow("blank typed, key unknown") << u"select "_s << 7 << KeyClass::Other << u""_s << 8;
    QTest::newRow("parenthesis typed")
        << u"x in("_s << 5 << KeyClass::OpenParenthesis << u"in"_s << 3;
    QTest::newRow("tab bounds") << u"a\tin\tb"_s << 3 << KeyClass::Other << u"in"_s << 3;
    QTest::newRow("line ends bound") << u"a\r\nin\r\nb"_s << 5 << KeyClass::Other << u"in"_s << 4;
    QTest::newRow("semicolon belongs to it") << u"end;"_s << 4 << KeyClass::Other << u"end;"_s << 1;
    QTest::newRow("between separators") << u"a ( b"_s << 3 << KeyClass::Other << u""_s << 4;
    QTest::newRow("caret beyond the text") << u"abc"_s << 99 << KeyClass::Other << u"abc"_s << 1;
}

void tst_WordAtCaret::wordsAtCaret()
{
    QFETCH(QString, text);
    QFETCH(int, caret);
    QFETCH(KeyClass, lastKey);
    QFETCH(QString, word);
    const WordAtCaret found = wordAtCaret(text, caret, lastKey);
    QCOMPARE(found.word, word);
    QTEST(found.start, "start");
    QCOMPARE(found.length, word.size());
}

void tst_WordAtCaret::keywordGroups_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<int>("group");

    QTest::newRow("first keyword") << u"SELECT"_s << 6;
    QTest::newRow("last keyword") << u"As"_s << 6;
    QTest::newRow("letter case") << u"sElEcT"_s << 6;
    QTest::newRow("punctuation") << u";"_s << 6;
    QTest::newRow("with a blank") << u"java class"_s << 6;
    QTest::newRow("data type") << u"varchar2"_s << 1;
    QTest::newRow("no word") << u"emp"_s << 0;
    QTest::newRow("part of a word") << u"SELEC"_s << 0;
    QTest::newRow("nothing") << u""_s << 0;
}

void tst_WordAtCaret::keywordGroups()
{
    QFETCH(QString, word);
    QTEST(keywordGroup(word, sqlWordClasses().keywordTable), "group");
}

void tst_WordAtCaret::everyWordIsInItsClass()
{
    const KeywordTable &table = sqlWordClasses().keywordTable;
    for (std::size_t group = 0; group < table.size(); ++group) {
        for (const QString &word : table[group]) {
            if (!word.isEmpty())
                QCOMPARE(keywordGroup(word, table), static_cast<int>(group));
        }
    }
    QCOMPARE(table[6][43], u"NEXT"_s);
    QCOMPARE(table[6][58], u"NEXT"_s);
    QVERIFY(table[1][7].isEmpty());
}

void tst_WordAtCaret::groupEndsAtItsFirstEmptyEntry()
{
    KeywordTable table;
    table[0][0] = u"PLAIN"_s;
    table[2][0] = u"BOTH"_s;
    table[2][2] = u"HIDDEN"_s;
    table[4][0] = u"BOTH"_s;
    QCOMPARE(keywordGroup(u"both", table), 2);
    QCOMPARE(keywordGroup(u"hidden", table), 0);
    QCOMPARE(keywordGroup(u"plain", table), 0);
}

QTEST_GUILESS_MAIN(tst_WordAtCaret)
#include "tst_wordatcaret.moc"
