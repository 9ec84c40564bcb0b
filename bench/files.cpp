// Opening a large file in the editor window, against the bare editor widget that is given the same
// text with the same colouring; and what a key costs in a file that is one long line.

#include "controls/editor/EditorControl.h"
#include "controls/editor/SyntaxColouring.h"
#include "controls/forms/measures.h"
#include "support/figures.h"
#include "support/inTurn.h"
#include "support/sampleTable.h"
#include "uisupport/PaintWatch.h"
#include "uisupport/RunningProgram.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int fileLines = 1'000'000;
constexpr qsizetype lineBytes = 1'000'000;
constexpr int keys = 100;
constexpr double longestKeyMilliseconds = 50;

/// 50 bytes a line, with what an operating system's own editors end lines with.
QByteArray manyLines()
{
    QByteArray text;
    for (int line = 0; line < fileLines; ++line) {
        const QByteArray number = QByteArray::number(line);
        text += "update sales set remark = 'no' where id = " + number +
                QByteArray("; -- x").first(6).leftJustified(7 - number.size(), ' ', true) + '\n';
    }
    return text;
}

QByteArray oneLine()
{
    const QByteArray piece = "insert into sales values (17, 'Le Havre', 3.50); ";
    return piece.repeated(lineBytes / piece.size() + 1).first(lineBytes);
}

QString writtenFile(const QTemporaryDir &folder, const QString &name, const QByteArray &text)
{
    const QString path = folder.filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        giveUp(file.errorString());
    return path;
}

QByteArray contentsOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The editor widget alone, coloured as the program's is.
class BareEditor : public QsciScintilla
{
public:
    BareEditor(const EditorControl &like, const QString &syntaxFile)
        : m_formats(*this)
        , m_colouring(*this, m_formats)
    {
        m_colouring.setDefinition(parseSyntaxDefinition(QString::fromUtf8(contentsOf(syntaxFile))));
        m_colouring.setLook(ColourTheme(like.BackColor(), like.palette().color(QPalette::Text)),
                            fixedWidthFamily(), defaultPoints());
        connect(this, &QsciScintillaBase::SCN_STYLENEEDED, this,
                [this](int position) { m_colouring.colourTo(position); });
        setUtf8(true);
    }

private:
    EditorFormats m_formats;
    SyntaxColouring m_colouring;
};

void printOpening(EditorControl &editor, const QString &syntaxFile, const QString &path)
{
    BareEditor bare(editor, syntaxFile);
    bare.resize(editor.size());
    bare.show();
    PaintWatch ours(editor.viewport());
    PaintWatch theirs(bare.viewport());
    const TwoSides seconds = measureInTurn(
        fewRounds,
        [&] {
            bare.SendScintilla(QsciScintillaBase::SCI_SETTEXT, contentsOf(path).constData());
            theirs.wait();
        },
        [&] {
            editor.LoadFile(path);
            ours.wait();
        });
    if (editor.lines() != bare.lines())
        giveUp(u"The editor shows %1 lines of %2."_s.arg(editor.lines()).arg(bare.lines()));
    printFigure(u"opening a file of 1,000,000 lines, 50 MB"_s, secondsText(seconds.ours.clock));
    printRatio(u"opening it / the bare editor widget"_s, seconds.ratio(), 1.5);
}

void printTyping(EditorControl &editor, const QString &where)
{
    PaintWatch watch(editor.viewport());
    std::vector<double> clock;
    std::vector<double> processor;
    for (int key = 0; key < keys; ++key) {
        const Spent spent = spentOn([&] {
            QTest::keyClick(&editor, Qt::Key_X);
            watch.wait();
        });
        clock.push_back(spent.clock * 1000);
        processor.push_back(spent.processor * 1000);
    }
    std::sort(clock.begin(), clock.end());
    std::sort(processor.begin(), processor.end());
    printMilliseconds(u"a key in a line of 1 MB, %1, median of 100"_s.arg(where), clock[keys / 2],
                      longestKeyMilliseconds);
    printFigure(u"the same in processor time"_s,
                QString::number(processor[keys / 2], 'f', 2) + u" ms"_s);
    printFigure(u"the longest of these keys"_s, QString::number(clock.back(), 'f', 2) + u" ms"_s);
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    const QString syntaxFile = QStringLiteral(PROGRAM_FOLDER "/T-SQL.bcp");
    const QTemporaryDir folder;
    RunningProgram program(sampleTable());
    EditorControl &editor = *program.fixture().text();
    editor.LoadSyntax(syntaxFile);
    printOpening(editor, syntaxFile, writtenFile(folder, u"lines.sql"_s, manyLines()));

    const QString longLine = writtenFile(folder, u"line.sql"_s, oneLine());
    PaintWatch watch(editor.viewport());
    editor.LoadFile(longLine);
    watch.wait();
    printTyping(editor, u"at its start"_s);
    editor.setSelStart(editor.textLength() / 2);
    watch.wait();
    printTyping(editor, u"in its middle"_s);
    editor.setSelStart(editor.textLength());
    watch.wait();
    printTyping(editor, u"at its end"_s);
    return 0;
}
