#include "controls/editor/EditorText.h"

#include "controls/editor/EditorChanges.h"
#include "controls/editor/EditorFormats.h"
#include "controls/editor/Utf16Positions.h"

#include <Qsci/qsciscintillabase.h>

using Sci = QsciScintillaBase;

namespace {

constexpr auto lineEnd = "\r\n";
constexpr int lineEndLength = 2;

} // namespace

EditorText::EditorText(QsciScintillaBase &editor, Utf16Positions &positions, EditorFormats &formats,
                       EditorChanges &changes)
    : m_editor(editor)
    , m_positions(positions)
    , m_formats(formats)
    , m_changes(changes)
{
}

QByteArray EditorText::whole() const
{
    return textBytes(m_editor, {0, m_editor.SendScintilla(Sci::SCI_GETLENGTH)});
}

void EditorText::setWhole(const QByteArray &text)
{
    const long readOnly = m_editor.SendScintilla(Sci::SCI_GETREADONLY);
    m_editor.SendScintilla(Sci::SCI_SETREADONLY, 0L);
    m_formats.forgetPending();
    changeAtOnce([&] {
        exchangeBytes(m_editor, {0, m_editor.SendScintilla(Sci::SCI_GETLENGTH)}, text);
    });
    m_editor.SendScintilla(Sci::SCI_SETREADONLY, readOnly);
}

/// Makes any number of changes one step for undo, and one change for whoever watches the text.
/// Meanwhile no position can be converted.
template <typename Change>
void EditorText::changeAtOnce(Change change)
{
    m_changes.collect();
    m_positions.dropIndex();
    m_editor.SendScintilla(Sci::SCI_BEGINUNDOACTION);
    change();
    m_editor.SendScintilla(Sci::SCI_ENDUNDOACTION);
    m_positions.buildIndex();
    m_changes.tell();
}

QByteArray EditorText::selected() const
{
    QByteArray text;
    const char *separator = "";
    for (const ByteRange &row : selectedRanges(m_editor)) {
        text += separator + textBytes(m_editor, row);
        separator = lineEnd;
    }
    return text;
}

int EditorText::selectedLength() const
{
    int length = -lineEndLength;
    for (const ByteRange &row : selectedRanges(m_editor))
        length += m_positions.toUnits(row.end) - m_positions.toUnits(row.begin) + lineEndLength;
    return length;
}

long EditorText::replaceSelected(const QByteArray &text)
{
    const std::vector<ByteRange> rows = selectedRanges(m_editor);
    if (rows.size() == 1)
        return replaceRange(rows.front(), text);
    long end = 0;
    changeAtOnce([&] { end = replaceRows(rows, text); });
    return end;
}

long EditorText::replaceRange(const ByteRange &range, const QByteArray &text)
{
    const EditorFormats::Format format = m_formats.forInsertion(range);
    exchangeBytes(m_editor, range, text);
    m_formats.apply(format, range.begin, text.size());
    return range.begin + text.size();
}

long EditorText::replaceRows(const std::vector<ByteRange> &rows, const QByteArray &text)
{
    // Each change would have the widget adjust all the rows that are selected.
    m_editor.SendScintilla(Sci::SCI_SETEMPTYSELECTION, rows.front().begin);
    long end = 0;
    long shift = 0;
    qsizetype from = 0;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const qsizetype lineEndAt = i + 1 < rows.size() ? text.indexOf(lineEnd, from) : -1;
        const qsizetype to = lineEndAt < 0 ? text.size() : lineEndAt;
        end = replaceRange({rows[i].begin + shift, rows[i].end + shift}, text.mid(from, to - from));
        shift = end - rows[i].end;
        from = lineEndAt < 0 ? to : to + lineEndLength;
    }
    return end;
}
