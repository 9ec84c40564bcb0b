#include "editor/caption.h"
#include "editor/paneLayout.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TestEditorLayout : public QObject
{
    Q_OBJECT
private slots:
    void captions_data();
    void captions();
    void splitRatioIsBounded();
    void panesAreLaidOutInTwips();
};

void TestEditorLayout::captions_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("caption");
    QTest::newRow("empty") << QString() << u"SCOTT@DWH - SQL Editor: ..."_s;
    QTest::newRow("short") << u"select 1"_s << u"SCOTT@DWH - SQL Editor: select 1..."_s;
    QTest::newRow("blanks go before the cut")
        << u"   select 1 from dual where 1 = 1 and 2 = 2  "_s
        << u"SCOTT@DWH - SQL Editor: select 1 from dual where 1 = 1..."_s;
    QTest::newRow("line ends and tabs stay")
        << u"\tselect\r\n 1 "_s << u"SCOTT@DWH - SQL Editor: \tselect\r\n 1..."_s;
}

void TestEditorLayout::captions()
{
    QFETCH(QString, text);
    QTEST(captionWithText(u"scott"_s, u"dwh"_s, text), "caption");
    QCOMPARE(captionAtLoad(u"scott"_s, u"dwh"_s), u"SCOTT@DWH - SQL Editor"_s);
}

void TestEditorLayout::splitRatioIsBounded()
{
    QCOMPARE(boundedSplitRatio(-1), 0.05F);
    QCOMPARE(boundedSplitRatio(0.3F), 0.3F);
    QCOMPARE(boundedSplitRatio(2), 0.8F);
}

void TestEditorLayout::panesAreLaidOutInTwips()
{
    const PaneLayout panes = layoutPanes(0.5F, {15000, 10000, 600, 600});
    QCOMPARE(panes.editorHeight, 5000);
    QCOMPARE(panes.editorWidth, 14800);
    QCOMPARE(panes.tabTop, 5650);
    QCOMPARE(panes.tabHeight, 3850);
    QCOMPARE(panes.tabWidth, 14800);
    QCOMPARE(panes.gridHeight, 2850);
    QCOMPARE(panes.gridWidth, 14700);
    QCOMPARE(panes.planHeight, 3100);
    QCOMPARE(panes.planWidth, 14700);
    QCOMPARE(panes.outputHeight, 2725);
    QCOMPARE(panes.outputWidth, 14700);
}

QTEST_APPLESS_MAIN(TestEditorLayout)
#include "tst_editorlayout.moc"
