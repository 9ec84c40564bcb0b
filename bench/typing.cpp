// What it costs to keep a text against a sudden end while it is typed: keys in an editor whose text
// is kept, against keys in one whose text is not.

#include "app/TextKeeper.h"
#include "controls/editor/EditorControl.h"
#include "support/figures.h"
#include "support/inTurn.h"
#include "uisupport/PaintWatch.h"

#include <QApplication>
#include <QDir>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr int rounds = 3;
/// Typed for longer than a text goes unkept.
constexpr int keys = 1500;
constexpr int textLines = 20'000;

/// An editor on the screen with a text of 1 MB, the caret in its middle.
void prepare(EditorControl &editor)
{
    editor.resize(1000, 600);
    editor.show();
    editor.setText(u"insert into sales values (17, 'Le Havre', 3.50);\r\n"_s.repeated(textLines));
    editor.setSelStart(editor.textLength() / 2);
}

void type(EditorControl &editor)
{
    PaintWatch watch(editor.viewport());
    for (int key = 0; key < keys; ++key) {
        QTest::keyClick(&editor, key % 60 == 59 ? Qt::Key_Return : Qt::Key_X);
        watch.wait();
    }
}

} // namespace

int main(int argc, char **argv)
{
    const QTemporaryDir folder;
    qputenv("XDG_STATE_HOME", QFile::encodeName(folder.path()));
    const QApplication application(argc, argv);
    EditorControl plain;
    EditorControl kept;
    prepare(plain);
    prepare(kept);
    new TextKeeper(kept);
    const TwoSides seconds = measureInTurn(
        rounds, [&] { type(plain); }, [&] { type(kept); });
    if (LostText::all().empty() && QDir(folder.path() + u"/Querna"_s).isEmpty())
        giveUp(u"The text was not kept."_s);
    printFigure(u"a key in a text of 1 MB that is kept, with its painting"_s,
                QString::number(seconds.ours.clock * 1000 / keys, 'f', 2) + u" ms"_s);
    printRatio(u"typing in a text that is kept / in one that is not"_s, seconds.ratio(), 1.05);
    printFigure(u"the same in processor time of this process"_s,
                QString::number(seconds.processorRatio(), 'f', 3));
    return 0;
}
