#pragma once

#include <QSignalBlocker>

class QsciScintillaBase;

/// Keeps an editor's selection and scroll position for as long as it lives: whatever selects in
/// between is neither seen nor told of.
class EditorViewKeeper
{
public:
    explicit EditorViewKeeper(QsciScintillaBase &editor);
    ~EditorViewKeeper();
    EditorViewKeeper(const EditorViewKeeper &) = delete;
    EditorViewKeeper &operator=(const EditorViewKeeper &) = delete;

private:
    QsciScintillaBase &m_editor;
    QSignalBlocker m_silence;
    long m_anchor;
    long m_caret;
    long m_firstLine;
    long m_horizontal;
};
