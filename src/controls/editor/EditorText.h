#pragma once

#include <QByteArray>

#include <vector>

class EditorChanges;
class EditorFormats;
class QsciScintillaBase;
class Utf16Positions;

/// A stretch of an editor's text, in the widget's bytes of UTF-8.
struct ByteRange
{
    long begin;
    long end;

    long length() const { return end - begin; }
};

/// What is selected, from top to bottom: one stretch, or for a rectangular selection one in every
/// row of the block, empty where the row is too short. A rectangle of no width selects nothing:
/// it is the empty stretch at the caret.
std::vector<ByteRange> selectedRanges(const QsciScintillaBase &editor);

QByteArray textBytes(const QsciScintillaBase &editor, const ByteRange &range);
void exchangeBytes(QsciScintillaBase &editor, const ByteRange &range, const QByteArray &text);

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
