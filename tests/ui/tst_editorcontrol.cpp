#include "controls/EditorControl.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_EditorControl : public QObject
{
    Q_OBJECT
private slots:
    void textHasCrLfLineEnds()
    {
        EditorControl editor;
        editor.setText(u"a\nb\rc\r\nd"_s);
        QCOMPARE(editor.GetText(), u"a\r\nb\r\nc\r\nd"_s);
        QCOMPARE(editor.textLength(), 10);
        editor.setSelStart(4);
        editor.setSelLength(100);
        QCOMPARE(editor.SelText(), u"\r\nc\r\nd"_s);
        QCOMPARE(editor.SelStart(), 4);
        QCOMPARE(editor.SelLength(), 6);
        editor.setSelText(u"\n"_s);
        QCOMPARE(editor.GetText(), u"a\r\nb\r\n"_s);
        editor.ExecuteCommand(100);
        QCOMPARE(editor.GetText(), u"a\r\nb\r\nc\r\nd"_s);
        editor.ExecuteCommand(100);
        QCOMPARE(editor.GetText(), u""_s);
        QCOMPARE(editor.textLength(), 0);
    }
};

QTEST_MAIN(tst_EditorControl)
#include "tst_editorcontrol.moc"
