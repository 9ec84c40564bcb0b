#pragma once

#include <QObject>

class EditorFormats;
class QsciScintilla;
class SyntaxColouring;

/// Follows the changes of an editor's text: keeps the colouring and the formats up with them, and
/// sees to it that the editor tells of each by linesChanged() and textChanged(). Of the changes in
/// a large text it tells a moment later, of many at once.
class EditorChanges : public QObject
{
    Q_OBJECT
public:
    EditorChanges(QsciScintilla &editor, SyntaxColouring &colouring, EditorFormats &formats);

    /// From here to tell() any number of changes is told of as one, at that moment.
    void collect();
    /// Tells now what would be told a moment later.
    void tell();

private:
    void listen();
    void note(long position, int type, long length);

    QsciScintilla &m_editor;
    SyntaxColouring &m_colouring;
    EditorFormats &m_formats;
    bool m_isLarge = false;
    bool m_isUntold = false;
};
