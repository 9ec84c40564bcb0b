#pragma once

#include "controls/editor/EditorSelection.h"

#include <QByteArray>

class EditorChanges;
class EditorFormats;
class QsciScintillaBase;
class Utf16Positions;

/// Reads and replaces an editor's text as the widget holds it, in UTF-8 with carriage return + line
/// feed. What replaces a text takes over its formats.
class EditorText
{
public:
    EditorText(QsciScintillaBase &editor, Utf16Positions &positions, EditorFormats &formats,
               EditorChanges &changes);

    QByteArray whole() const;
    /// Replaces the whole text, also while the editor is read-only; one step for undo.
    void setWhole(const QByteArray &text);

    /// The rows of a block have line ends between them.
    QByteArray selected() const;
    /// In UTF-16 units.
    int selectedLength() const;
    /// Puts a text in the place of the selection, or a line of it in the place of each row of a
    /// block: rows that are left over become empty, and lines that are left over stay with the
    /// last row. One step for undo. @returns the end of what was put in
    long replaceSelected(const QByteArray &text);

private:
    template <typename Change>
    void changeAtOnce(Change change);
    long replaceRange(const ByteRange &range, const QByteArray &text);
    long replaceRows(const std::vector<ByteRange> &rows, const QByteArray &text);

    QsciScintillaBase &m_editor;
    Utf16Positions &m_positions;
    EditorFormats &m_formats;
    EditorChanges &m_changes;
};
