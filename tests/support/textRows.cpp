#include "support/coreTest.h"

void addTextColumns()
{
    QTest::addColumn<TextFunction>("function");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
}

void addTextRows(const char *name, const TextFunction &function, const QString &table)
{
    QStringList texts;
    for (const QString &row : table.split(u'|')) {
        const qsizetype arrow = row.indexOf(u'→');
        texts.append(arrow < 0 ? row : row.first(arrow));
        if (arrow < 0)
            continue;
        for (const QString &text : std::exchange(texts, {}))
            QTest::addRow("%s: %s", name, qPrintable(text))
                << function << text << row.sliced(arrow + 1);
    }
    if (!texts.isEmpty())
        qFatal("%s: nothing is expected of the last text", name);
}

void compareTextRow()
{
    QFETCH(TextFunction, function);
    QFETCH(QString, text);
    QString made;
    try {
        made = function(text);
    } catch (const RuntimeError &error) {
        made = u"error %1"_s.arg(error.number);
    }
    QTEST(made, "expected");
}
