#include "controls/editor/StyleBytes.h"
#include "controls/editor/SyntaxColouring.h"
#include "controls/grids/DataGrid.h"
#include "controls/grids/gridLook.h"
#include "uisupport/uiTest.h"

using Sci = QsciScintillaBase;

namespace {

void prepare(EditorControl &editor)
{
    editor.setWordClasses(sqlWordClasses());
    editor.LoadSyntax(QCoreApplication::applicationDirPath() + u"/../app/T-SQL.bcp"_s);
}

/// The style of every byte, as they are when the whole text is shown; styles that look the same
/// count as one.
QByteArray looks(EditorControl &editor)
{
    const long length = editor.SendScintilla(Sci::SCI_GETLENGTH);
    emit editor.SCN_STYLENEEDED(static_cast<int>(length));
    QByteArray styles(length, '\0');
    for (int i = 0; i < length; ++i)
        styles[i] =
            static_cast<char>(editor.SendScintilla(Sci::SCI_GETSTYLEAT, static_cast<long>(i)) &
                              ~StyleBytes::alternation);
    return styles;
}

/// The widget keeps colours with blue in the high byte.
QColor colourOf(long bgr)
{
    return {static_cast<int>(bgr & 0xFF), static_cast<int>((bgr >> 8) & 0xFF),
            static_cast<int>((bgr >> 16) & 0xFF)};
}

/// An attribute of the style that a character is written in by the colouring.
long styleOf(EditorControl &editor, int position, unsigned attribute)
{
    const auto style = static_cast<unsigned long>(looks(editor).at(position) & 0xFF);
    return editor.SendScintilla(attribute, style);
}

QColor wordColour(EditorControl &editor, int position)
{
    return colourOf(styleOf(editor, position, Sci::SCI_STYLEGETFORE));
}

/// The colour that was set on a character; none when it has that of its word.
std::optional<QColor> ownColour(EditorControl &editor, int position)
{
    const long value = editor.SendScintilla(Sci::SCI_INDICATORVALUEAT,
                                            static_cast<unsigned long>(Sci::INDIC_CONTAINER),
                                            static_cast<long>(position));
    return value == 0 ? std::nullopt : std::optional(colourOf(value));
}

/// How many points of the editor's picture have a colour.
int countPixels(EditorControl &editor, const QColor &color)
{
    const QImage image = editor.viewport()->grab().toImage();
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, y) == color;
    }
    return count;
}

const QColor orange(255, 140, 0);

} // namespace

/// The colours of the text, and the formats that lie over them.
class tst_EditorColouring : public QObject
{
    Q_OBJECT
private slots:
    void editsLeaveNoStaleColour_data();
    void editsLeaveNoStaleColour();
    void colouringIsNoStep();
    void definitionGivesTheColours();
    void pickedTextIsOrange();
    void fontsLieOverTheColours();
    void typedTextTakesWhatWasSet();
    void readableOnEveryDesktop_data();
    void readableOnEveryDesktop();
};

void tst_EditorColouring::editsLeaveNoStaleColour_data()
{
    const DataRows<QString, int, int> row("separator", "pieces", "edits");
    row("lines", u"\n"_s, 60, 400);
    row("one long line", u" "_s, 4000, 60);
    row("one huge line", u" "_s, 24000, 12);
    row("long lines", u" select 1 \n"_s + u"in "_s.repeated(2000), 12, 60);
}

void tst_EditorColouring::editsLeaveNoStaleColour()
{
    QFETCH(QString, separator);
    QFETCH(int, pieces);
    QFETCH(int, edits);
    const QStringList words{u"'"_s,    u"/*"_s, u"*/"_s, u"--"_s,    u"select"_s,  u"java class"_s,
                            u"q'["_s,  u"]'"_s, u"\""_s, u"1.5e3"_s, u"\n"_s,      u"a"_s,
                            u"date"_s, u"é😀"_s, u"  "_s, u"'x'"_s,   u"/* y */"_s, u"class"_s};
    QRandomGenerator random(7);
    QString text;
    for (int i = 0; i < pieces; ++i) {
        // Quotes and comment marks stay rare, so that there is something between them.
        text += words.at(random.bounded(8) > 0 ? 4 + 7 * random.bounded(2) : random.bounded(18));
        text += separator;
    }
    EditorControl edited;
    EditorControl fresh;
    prepare(edited);
    prepare(fresh);
    edited.setText(text);
    looks(edited);
    for (int i = 0; i < edits; ++i) {
        edited.setSelStart(random.bounded(edited.textLength() + 1));
        edited.setSelLength(random.bounded(3) == 0 ? random.bounded(30) : 0);
        edited.setSelText(words.at(random.bounded(static_cast<int>(words.size()))));
        // Sometimes only a part is shown before the next edit.
        if (random.bounded(3) == 0) {
            emit edited.SCN_STYLENEEDED(
                random.bounded(static_cast<int>(edited.SendScintilla(Sci::SCI_GETLENGTH)) + 1));
            continue;
        }
        fresh.setText(edited.GetText());
        QCOMPARE(looks(edited), looks(fresh));
    }
}

void tst_EditorColouring::colouringIsNoStep()
{
    EditorControl editor;
    prepare(editor);
    editor.setText(u"select"_s);
    looks(editor);
    editor.setSelLength(3);
    editor.setSelColor(orange);
    editor.setSelBold(true);
    looks(editor);
    editor.ExecuteCommand(100);
    QCOMPARE(editor.GetText(), u""_s);
    QVERIFY(!editor.isUndoAvailable());
}

// A bad one changes nothing.
void tst_EditorColouring::definitionGivesTheColours()
{
    const QTemporaryDir folder;
    const QString bad = folder.filePath(u"bad.bcp"_s);
    makeFile(bad, "syntax x\nnonsense\n");

    EditorControl editor;
    prepare(editor);
    editor.setBackColor(Qt::white);
    editor.setText(u"select date x -- if\n'in'"_s);
    QCOMPARE(wordColour(editor, 0), QColor(Qt::blue));
    QCOMPARE(wordColour(editor, 7), QColor(Qt::red));
    QCOMPARE(wordColour(editor, 12), QColor(Qt::black));
    QVERIFY(wordColour(editor, 17) != QColor(Qt::blue));
    const QByteArray before = looks(editor);
    QCOMPARE(raisedError([&] { editor.LoadSyntax(bad); }), 13);
    QCOMPARE(raisedError([&] { editor.LoadSyntax(folder.filePath(u"none"_s)); }), 53);
    QCOMPARE(raisedError([&] { editor.LoadSyntax(folder.filePath(u"a/none"_s)); }), 76);
    QCOMPARE(looks(editor), before);
}

void tst_EditorColouring::pickedTextIsOrange()
{
    EditorControl editor;
    prepare(editor);
    editor.setBackColor(Qt::white);
    editor.setCaretLineVisible(false);
    editor.resize(600, 200);
    editor.show();
    editor.setText(u"from "_s);
    editor.setSelStart(5);
    QCOMPARE(countPixels(editor, orange), 0);
    editor.setSelColor(orange);
    editor.InsertText(u" MMMM.EMP "_s);
    editor.setSelColor(Qt::black);
    QCOMPARE(editor.GetText(), u"from  MMMM.EMP "_s);
    QVERIFY(countPixels(editor, orange) > 0);
    // What follows is coloured as usual.
    editor.InsertText(u"SELECT"_s);
    QCOMPARE(ownColour(editor, 14), orange);
    QCOMPARE(ownColour(editor, 15), std::nullopt);
    QCOMPARE(wordColour(editor, 15), QColor(Qt::blue));
    // The text stays orange while others come before it, and goes with it.
    editor.setSelStart(0);
    editor.InsertText(u"x\n"_s);
    QCOMPARE(ownColour(editor, 7), std::nullopt);
    QCOMPARE(ownColour(editor, 8), orange);
    QCOMPARE(ownColour(editor, 18), std::nullopt);
    // A text in its place takes it over, and what is set on that replaces it.
    editor.setSelStart(8);
    editor.setSelLength(10);
    editor.InsertText(u"MMMM"_s);
    QCOMPARE(ownColour(editor, 8), orange);
    QCOMPARE(ownColour(editor, 12), std::nullopt);
    editor.setSelStart(8);
    editor.setSelLength(4);
    editor.setSelColor(Qt::black);
    QCOMPARE(countPixels(editor, orange), 0);
}

// They move with the text, and keep to its characters.
void tst_EditorColouring::fontsLieOverTheColours()
{
    EditorControl editor;
    prepare(editor);
    editor.setBackColor(Qt::white);
    editor.setText(u"select select"_s);
    editor.setSelLength(6);
    editor.setSelItalic(true);
    editor.setSelFontSize(20);
    editor.setSelLength(3);
    editor.setSelBold(true);
    editor.setSelStart(0);
    editor.InsertText(u"é "_s);
    const int begin = 3; // in bytes
    for (const int at : {0, 4, 7}) {
        const bool isSet = at < 6;
        QCOMPARE(styleOf(editor, begin + at, Sci::SCI_STYLEGETITALIC) != 0, isSet);
        QCOMPARE(styleOf(editor, begin + at, Sci::SCI_STYLEGETSIZE) == 20, isSet);
        QCOMPARE(styleOf(editor, begin + at, Sci::SCI_STYLEGETBOLD) != 0, at < 3);
        QCOMPARE(wordColour(editor, begin + at), QColor(Qt::blue));
    }
    QCOMPARE(styleOf(editor, 0, Sci::SCI_STYLEGETITALIC), 0);
}

void tst_EditorColouring::typedTextTakesWhatWasSet()
{
    EditorControl editor;
    editor.setBackColor(Qt::white);
    editor.resize(600, 200);
    editor.show();
    editor.setSelColor(orange);
    QTest::keyClicks(&editor, u"MM"_s);
    QCOMPARE(ownColour(editor, 1), orange);
    editor.setSelStart(0);
    QTest::keyClicks(&editor, u"MM"_s);
    QCOMPARE(ownColour(editor, 1), std::nullopt);
    QCOMPARE(ownColour(editor, 2), orange);
    QCOMPARE(ownColour(editor, 3), orange);

    // What was set at one place is over with a text that comes in at another, or instead.
    editor.setText(u"abc"_s);
    editor.setSelStart(3);
    editor.setSelColor(orange);
    editor.setSelStart(0);
    QTest::keyClicks(&editor, u"x"_s);
    editor.setSelStart(3);
    QTest::keyClicks(&editor, u"M"_s);
    QCOMPARE(ownColour(editor, 3), std::nullopt);
    editor.setSelStart(0);
    editor.setSelColor(orange);
    editor.setText(u"abc"_s);
    QCOMPARE(ownColour(editor, 1), std::nullopt);
}

void tst_EditorColouring::readableOnEveryDesktop_data()
{
    const DataRows<QColor, QColor> row("base", "text");
    row("light", Qt::white, Qt::black);
    row("dark", "#1b1e20"_L1, "#fcfcfc"_L1);
    row("coloured", "#002b36"_L1, "#93a1a1"_L1);
    row("grey", Qt::gray, Qt::darkGray);
    row("unreadable text", Qt::darkBlue, Qt::black);
}

// Whatever a desktop's palette says beside background and text.
void tst_EditorColouring::readableOnEveryDesktop()
{
    QFETCH(QColor, base);
    QFETCH(QColor, text);
    QVERIFY(qAbs(contrast(Qt::black, Qt::white) - 21) < 0.01);
    QVERIFY(qAbs(contrast(QColor(0x77, 0x77, 0x77), Qt::white) - 4.48) < 0.01);
    EditorControl editor;
    prepare(editor);
    DataGrid grid;
    const QPalette before = QGuiApplication::palette();
    QPalette palette(base);
    for (const auto role : {QPalette::Base, QPalette::Button, QPalette::Mid, QPalette::Highlight,
                            QPalette::PlaceholderText})
        palette.setColor(role, base);
    palette.setColor(QPalette::Text, text);
    QGuiApplication::setPalette(palette);
    QTRY_COMPARE(editor.BackColor(), base);
    const QPalette gridColours = grid.palette();
    QGuiApplication::setPalette(before);

    editor.setText(u"select date x -- c\n'l' 12 \"q\""_s);
    for (const int at : {0, 7, 12, 15, 20, 24, 27}) {
        const QColor colour = wordColour(editor, at);
        // The red of data types is not as far from white, either.
        QVERIFY2(contrast(colour, base) >= (at == 7 ? 3.5 : 4.5), qPrintable(colour.name()));
    }
    const ColourTheme theme(base, text);
    for (const QColor &ground : {base, theme.margin(), theme.currentLine(), theme.otherRow(),
                                 theme.selection(), theme.brace(), theme.unmatchedBrace()})
        QVERIFY2(contrast(theme.text(), ground) >= 4.5, qPrintable(ground.name()));
    QCOMPARE(theme.text() == text, contrast(text, base) >= 4.5);
    QVERIFY(contrast(theme.lineNumber(), theme.margin()) >= 4.5);
    QCOMPARE(colourOf(editor.SendScintilla(Sci::SCI_STYLEGETFORE, Sci::STYLE_LINENUMBER)),
             theme.lineNumber());

    for (const auto group : {QPalette::Active, QPalette::Inactive})
        QVERIFY(contrast(gridColours.color(group, QPalette::HighlightedText),
                         gridColours.color(group, QPalette::Highlight)) >= 4.5);
    QCOMPARE(gridColours.color(QPalette::AlternateBase), theme.otherRow());
    QStandardItemModel model(1, 1);
    RowNumberHeader header;
    header.setModel(&model);
    header.setPalette(palette);
    header.setFont(QFont(u"DejaVu Sans Mono"_s, 40));
    header.resize(200, 100);
    const QImage picture = header.grab().toImage();
    double best = 1;
    for (int x = 0; x < picture.width(); ++x)
        best = std::max(best,
                        contrast(picture.pixelColor(x, header.sectionSize(0) / 2), theme.margin()));
    QVERIFY(best >= 4.5);
}

QTEST_MAIN(tst_EditorColouring)
#include "tst_editorcolouring.moc"
