#pragma once

#include "sqltext/wordAtCaret.h"

#include <QObject>
#include <QPointer>

#include <functional>
#include <utility>
#include <vector>

class EditorControl;
class QWidget;

/// Answers the events of an editor window's `txtSQL`: keeps the caret panel, tells kinds of keys
/// apart, leaves the Tab key to the editor while it has the focus, and colours words by class.
class EditorEvents : public QObject
{
    Q_OBJECT
public:
    /// Writes the text of the status bar's caret panel.
    using ShowCaret = std::function<void(const QString &text)>;

    /// Listens to @p txtSQL from now on. Both widgets have to live as long as this object.
    /// @param window  whose controls give up their tab stops while the editor has the focus
    EditorEvents(EditorControl &txtSQL, QWidget &window, ShowCaret showCaret,
                 const WordClasses &classes = sqlWordClasses());

    /// Writes the editor's line and column into the panel.
    void showCaretPosition();

    void txtSQL_CaretMoved(int column, int line);
    void txtSQL_KeyDown(int keyCode, int shift);
    void txtSQL_GotFocus();
    void txtSQL_LostFocus();

    KeyClass lastKeyClass() const { return m_lastKeyClass; }

    /// The word at the caret as it was last reported.
    WordAtCaret wordAtCaret() const;
    /// Gives @p length characters from the 1-based @p start the colour of word class @p group.
    /// Selection and scroll position are the same afterwards.
    void colourRange(int start, int length, int group);
    /// Colours the word at the caret by its class. @returns the class; -1 when there is no word
    int colourWordAtCaret();

private:
    EditorControl &txtSQL;
    QWidget &m_window;
    ShowCaret m_showCaret;
    const WordClasses m_classes;
    KeyClass m_lastKeyClass = KeyClass::Other;
    int m_caret = 0; ///< where it was last reported, a 0-based position
    std::vector<std::pair<QPointer<QWidget>, bool>> m_savedTabStops;
};

// Where the caret of an edit control stands, told by the control's window messages.

/// 1-based line of the selection's start.
qint32 CurrentLine(const EditorControl &txt);

/// 1-based column of the selection's start, in UTF-16 units.
qint32 CurrentColumn(const EditorControl &txt);

/// Both in one value: the column in the low half, the line in the high half.
/// @throws RuntimeError 6 when either is beyond 32767
qint32 caretLineColumn(const EditorControl &txt);
