#pragma once

#include <Qsci/qsciscintilla.h>

#include <QColor>
#include <QString>

/// The syntax-colouring editor control.
///
/// The text has carriage return + line feed line ends, whatever came in. Positions and lengths are
/// counted in UTF-16 units of that text; SelStart is 0-based. Operations that stand for the
/// control's outside interface carry its names, with a capital.
class EditorControl : public QsciScintilla
{
    Q_OBJECT
public:
    explicit EditorControl(QWidget *parent = nullptr);

    // Text
    QString GetText() const;
    QString Text() const { return GetText(); }
    /// Replaces the whole text; one step for undo.
    void setText(const QString &text) override;
    int textLength() const;

    // Selection
    int SelStart() const;
    /// Moves the caret and selects nothing; positions past the end mean the end.
    void setSelStart(int position);
    int SelLength() const;
    void setSelLength(int length);
    QString SelText() const;
    /// Replaces the selection, or inserts at the caret; the caret ends behind the new text.
    void setSelText(const QString &text);
    QString GetSelection() const { return SelText(); }
    void InsertText(const QString &text) { setSelText(text); }

    // Character format of the selection; lies over the word colours
    void setSelColor(const QColor &color);
    void setSelFontSize(double points);
    void setSelBold(bool on);
    void setSelItalic(bool on);
    void setSelUnderline(bool on);
    void setSelStrikeThru(bool on);

    void setBackColor(const QColor &color);
    QColor BackColor() const;
    bool ReadOnly() const;

    /// Command numbers of ExecuteCommand().
    enum CommandNumber { CommandUndo = 100, CommandRedo = 101 };
    void ExecuteCommand(int number);

    /// Loads a syntax definition; docs in the file itself.
    /// @throws RuntimeError 53 or 76 when it is missing, 13 when it is no definition
    void LoadSyntax(const QString &path);

    /// Replaces the text by a file's: UTF-8 (with or without a mark), UTF-16 or Latin-1, any line
    /// ends. @throws RuntimeError 53, 70, 75 or 76; the text then stays as it was
    void LoadFile(const QString &path);

    /// Names the control's scratch file; the text stays as it is.
    void setScratchFile(const QString &path);

    // The control's own dialogs
    void FindDialog();
    void ReplaceDialog();
    void PageSetupDialog();

    // Win32 edit-control messages
    /// EM_LINEFROMCHAR: the 0-based line of a position; -1 means the caret's.
    int lineFromCharacter(int position) const;
    /// EM_LINEINDEX: the position of a 0-based line's first character; -1 means the caret's line.
    int lineIndex(int line) const;

signals:
    /// The caret has moved; both counted from 1.
    void caretMoved(int column, int line);
    void focusEntered();
    void focusLeft();
    /// A key went down, before the control acts on it. @p shift is 1 Shift + 2 Ctrl + 4 Alt;
    /// @p keyCode is the Windows virtual-key code (32 blank, 9 tab, 48 to 57 digits, 13 Enter, 8
    /// Backspace, 46 Delete, otherwise 0).
    void keyWentDown(int keyCode, int shift);
};
