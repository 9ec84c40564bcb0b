#pragma once

#include "controls/editor/EditorFormats.h"
#include "controls/editor/EditorLook.h"
#include "controls/editor/Utf16Positions.h"
#include "sqltext/SyntaxDefinition.h"

#include <Qsci/qsciscintilla.h>

#include <QColor>
#include <QFont>
#include <QString>

#include <memory>
#include <utility>

class EditorChanges;
class EditorFindDialog;
class EditorMarks;
class EditorPageSetup;
class EditorText;
class SyntaxColouring;

/// The syntax-colouring editor control.
///
/// The text has carriage return + line feed line ends, whatever came in. Positions and lengths are
/// counted in UTF-16 units of that text; SelStart is 0-based. An unpaired surrogate that is handed
/// in becomes U+FFFD, zero characters stay. Operations that stand for the control's outside
/// interface carry its names, with a capital.
///
/// While the control is read-only, neither typing nor setSelText() changes the text; setText() and
/// LoadFile() do.
class EditorControl : public QsciScintilla
{
    Q_OBJECT
public:
    explicit EditorControl(QWidget *parent = nullptr);
    ~EditorControl() override;

    // Text
    QString GetText() const;
    QString Text() const { return GetText(); }
    /// Replaces the whole text; one step for undo. The caret goes to the start.
    void setText(const QString &text) override;
    int textLength() const { return m_positions.length(); }

    // Selection. It never cuts a line end in two: between CR and LF, it begins before the CR and
    // ends after the LF. The text of a rectangular one is its rows with line ends between them,
    // and so long; what is set here is never rectangular.
    int SelStart() const;
    /// Moves the caret and selects nothing; positions past the end mean the end.
    void setSelStart(int position);
    int SelLength() const;
    void setSelLength(int length);
    QString SelText() const;
    /// Replaces the selection, or inserts at the caret, in one step for undo; the caret ends after
    /// the new text. In a rectangular selection every row gets a line of the text: rows that are
    /// left over become empty, and lines that are left over stay with the last row.
    void setSelText(const QString &text);
    QString GetSelection() const { return SelText(); }
    void InsertText(const QString &text) { setSelText(text); }

    // Character format of the selection; lies over the word colours. With nothing selected it is
    // the format of the text that is inserted next, until the caret moves elsewhere.
    /// Black is the colour of plain text; with nothing selected, what follows is coloured as usual.
    void setSelColor(const QColor &color) { m_formats.setColor(color); }
    /// Sizes from 1 to 400 points.
    void setSelFontSize(double points) { m_formats.setPoints(points); }
    void setSelBold(bool on) { m_formats.setBold(on); }
    void setSelItalic(bool on) { m_formats.setItalic(on); }
    void setSelUnderline(bool on) { m_formats.setUnderline(on); }
    void setSelStrikeThru(bool on) { m_formats.setStrikeThru(on); }
    /// Gives a range the colour that setSelColor() would give it, and selects nothing.
    void setColorBetween(int begin, int end, const QColor &color)
    {
        m_formats.setColor({m_positions.toBytes(begin), m_positions.toBytes(end)}, color);
    }

    /// The font family of the whole text.
    void setFontName(const QString &family) { m_look->setFontName(family); }
    /// What text without a format of its own is written in.
    QFont Font() const { return m_look->font(); }

    /// Colours that depend on the background follow it.
    void setBackColor(const QColor &color) { m_look->setBackground(color); }
    QColor BackColor() const { return m_look->background(); }
    bool ReadOnly() const { return isReadOnly(); }

    /// Command numbers of ExecuteCommand(); other numbers do nothing.
    enum CommandNumber { CommandUndo = 100, CommandRedo = 101 };
    void ExecuteCommand(int number);

    /// Loads a syntax definition; the form of such a file is described in T-SQL.bcp.
    /// @throws RuntimeError 53 or 76 when it is missing, 13 when it is no definition; the colouring
    /// then stays as it was
    void LoadSyntax(const QString &path);
    /// The words that are coloured while typing.
    void setWordClasses(const WordClasses &classes);

    /// Replaces the text by a file's: UTF-8 (with or without a mark), UTF-16 or Latin-1, any line
    /// ends. One step for undo. The caret goes to the start.
    /// @throws RuntimeError 53, 70, 75 or 76, 57 when the reading breaks off, 7 when the file is
    /// larger than 1 GB; the text then stays as it was
    void LoadFile(const QString &path);

    /// Names the control's scratch file; the text stays as it is.
    void setScratchFile(const QString &path) { m_scratchFile = path; }
    QString ScratchFile() const { return m_scratchFile; }

    /// Marks a place in the margin, with a text that the mouse brings up over it. The mark goes
    /// when one of the lines changes. @param firstLine  with @p lastLine, counted from 0
    void markLines(int firstLine, int lastLine, const QString &text);
    void clearMarks();

    // The control's own dialogs
    void FindDialog();
    void ReplaceDialog();
    void PageSetupDialog();

    // Win32 edit-control messages
    /// EM_LINEFROMCHAR: the 0-based line of a position; -1 means the caret's.
    int lineFromCharacter(int position) const;
    /// EM_LINEINDEX: the position of a 0-based line's first character; -1 means the caret's line,
    /// and a line that is not there has the position -1.
    int lineIndex(int line) const;

    // For screen readers
    int caretPosition() const { return m_positions.toUnits(SendScintilla(SCI_GETCURRENTPOS)); }
    QString textBetween(int begin, int end) const;
    /// The place of a character on the screen.
    QRect characterRectangle(int position) const;
    /// The position at a point of the viewport; -1 where no character is.
    int positionAt(const QPoint &point) const;

    /// Puts @p text in the place of a range, which may not cut a line end in two; one step for
    /// undo.
    void exchange(int begin, int end, const QString &text);

    /// Steps that the text is zoomed by, -10 to 20; 0 is its own size. zoomTo() sets it.
    int zoomLevel() const;

signals:
    /// The text has changed. In a large text, and of many changes at once, this comes a moment
    /// later.
    void contentChanged();
    /// The caret has moved; both counted from 1.
    void caretMoved(int column, int line);
    void zoomed();
    void focusEntered();
    void focusLeft();
    /// A key went down, before the control acts on it. @p shift is 1 Shift + 2 Ctrl + 4 Alt;
    /// @p keyCode is the Windows virtual-key code (32 blank, 9 tab, 48 to 57 digits, 13 Enter, 8
    /// Backspace, 46 Delete, otherwise 0).
    void keyWentDown(int keyCode, int shift);
    /// Ctrl with the blank was pressed: the name at the caret is to be completed.
    void completionWanted();
    /// A file was dropped on the control, which leaves it to others to load it.
    void fileDropped(const QString &path);

protected:
    bool event(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    QMimeData *toMimeData(const QByteArray &text, bool rectangular) const override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    EditorFindDialog &findDialog();
    void setUpEditing();
    void setUpKeys();
    void reportCaret();
    void select(long anchor, long caret);

    Utf16Positions m_positions;
    EditorFormats m_formats;
    std::unique_ptr<SyntaxColouring> m_colouring;
    std::unique_ptr<EditorChanges> m_changes;
    std::unique_ptr<EditorText> m_text;
    std::unique_ptr<EditorLook> m_look;
    std::unique_ptr<EditorMarks> m_marks;
    std::unique_ptr<EditorPageSetup> m_pageSetup;
    EditorFindDialog *m_findDialog = nullptr;
    bool m_hasFocus = false;
    std::pair<int, int> m_reportedCaret{1, 1}; ///< column and line
    QString m_scratchFile;
};
