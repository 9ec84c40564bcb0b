#include "sqltext/wordAtCaret.h"
#include "support/textRows.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// The class of a key, which is given as its code and the state of the modifiers.
QString classOfKey(const QString &key)
{
    const int number = static_cast<int>(
        keyClass(key.section(u' ', 0, 0).toInt(), key.section(u' ', 1, 1).toInt()));
    return QString::number(number);
}

/// The word at the caret, which stands where `^` does, or beyond a text without one, with its start
/// and length.
TextFunction wordAt(KeyClass lastKey)
{
    return [lastKey](QString text) {
        const auto caret = text.contains(u'^') ? static_cast<int>(text.indexOf(u'^')) : 99;
        const WordAtCaret found = wordAtCaret(text.remove(u'^'), caret, lastKey);
        return u"%1 %2 %3"_s.arg(found.word).arg(found.start).arg(found.length);
    };
}

QString groupOf(const QString &word)
{
    return QString::number(keywordGroup(word, sqlWordClasses().keywordTable));
}

} // namespace

/// The rules for keys, for the word at the caret and for the classes of words.
class tst_WordAtCaret : public QObject
{
    Q_OBJECT
private slots:
    void rules_data();
    void rules() { compareTextRow(); }
    void groupEndsAtItsFirstEmptyEntry();
};

void tst_WordAtCaret::rules_data()
{
    addTextColumns();
    addTextRows("key", classOfKey,
                u"32 0|32 7→1|9 1→2|57 1→3|48 1→4|13 2→5|8 0→6|46 0→7|"
                "57 0|57 3|48 5|56 1|0 1→0"_s);
    addTextRows("word", wordAt(KeyClass::Other),
                u"^→ 1 0|select^→select 1 6|a se^lect b|a ^select b→select 3 6|select ^→ 8 0|"
                "a\ti^n\tb→in 3 2|a\r\ni^n\r\nb→in 4 2|end;^→end; 1 4|a (^ b→ 4 0|abc→abc 1 3"_s);
    addTextRows("word after a blank", wordAt(KeyClass::Blank), u"^→ 1 0|select ^→select 1 6"_s);
    addTextRows("word after a parenthesis", wordAt(KeyClass::OpenParenthesis), u"x in(^→in 3 2"_s);
    // The first and the last word of each class among them.
    addTextRows("group", groupOf,
                u"SELECT|As|sElEcT|;|java class→6|varchar2|cursor→1|emp|SELEC|→0"_s);
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
