#include "controls/EditorSearch.h"

#include "controls/EditorControl.h"
#include "controls/EditorReplaceDialog.h"
#include "sqltext/textFile.h"

using Sci = QsciScintillaBase;

EditorSearch::EditorSearch(EditorControl &editor)
    : m_editor(editor)
{
}

EditorSearch::Result EditorSearch::find(const SearchText &wanted, Direction direction)
{
    const bool forward = direction == Direction::Forward;
    const Range selected = selection();
    const long begin = 0;
    const long end = m_editor.SendScintilla(Sci::SCI_GETLENGTH);
    auto found =
        forward ? search(wanted, selected.end, end) : search(wanted, selected.begin, begin);
    const bool wrapped = !found;
    if (wrapped)
        found = forward ? search(wanted, begin, end) : search(wanted, end, begin);
    if (!found)
        return Result::NotFound;
    selectRange(*found);
    return wrapped ? Result::FoundAfterWrap : Result::Found;
}

EditorSearch::Result EditorSearch::replace(const SearchText &wanted, const QString &replacement)
{
    const Range selected = selection();
    const auto match = search(wanted, selected.begin, selected.end);
    if (match && match->begin == selected.begin && match->end == selected.end)
        m_editor.setSelText(replacement);
    return find(wanted, Direction::Forward);
}

int EditorSearch::replaceAll(const SearchText &wanted, const QString &replacement)
{
    if (m_editor.isReadOnly())
        return 0;
    const QByteArray inserted = editorUtf8(replacement);
    const long length = m_editor.SendScintilla(Sci::SCI_GETLENGTH);
    // The text between the first and the last occurrence is put together here and exchanged at
    // once: a replacement of each would have the widget count a long line anew for each.
    QByteArray exchanged;
    Range range;
    int count = 0;
    for (auto found = search(wanted, 0, length); found; found = search(wanted, range.end, length)) {
        if (count++ == 0)
            range.begin = found->begin;
        else
            exchanged += m_editor.textBytes(range.end, found->begin);
        exchanged += inserted;
        range.end = found->end;
    }
    if (count > 0)
        m_editor.exchange(range.begin, range.end, exchanged);
    return count;
}

bool EditorSearch::isReadOnly() const
{
    return m_editor.isReadOnly();
}

std::optional<EditorSearch::Range> EditorSearch::search(const SearchText &wanted, long from,
                                                        long to) const
{
    const QByteArray text = wanted.text.toUtf8();
    if (text.isEmpty())
        return std::nullopt;
    const long flags = (wanted.matchCase ? Sci::SCFIND_MATCHCASE : 0) |
                       (wanted.wholeWord ? Sci::SCFIND_WHOLEWORD : 0);
    m_editor.SendScintilla(Sci::SCI_SETSEARCHFLAGS, flags);
    m_editor.SendScintilla(Sci::SCI_SETTARGETRANGE, static_cast<unsigned long>(from), to);
    const long at = m_editor.SendScintilla(Sci::SCI_SEARCHINTARGET,
                                           static_cast<uintptr_t>(text.size()), text.constData());
    if (at < 0)
        return std::nullopt;
    return Range{m_editor.SendScintilla(Sci::SCI_GETTARGETSTART),
                 m_editor.SendScintilla(Sci::SCI_GETTARGETEND)};
}

void EditorSearch::selectRange(const Range &range)
{
    m_editor.SendScintilla(Sci::SCI_SETSEL, static_cast<unsigned long>(range.begin), range.end);
}

EditorSearch::Range EditorSearch::selection() const
{
    return {m_editor.SendScintilla(Sci::SCI_GETSELECTIONSTART),
            m_editor.SendScintilla(Sci::SCI_GETSELECTIONEND)};
}

template <typename Dialog>
void EditorSearch::show(Dialog *&dialog)
{
    if (!dialog)
        dialog = new Dialog(*this, &m_editor);
    dialog->showFor(m_editor.SelText());
}

void EditorSearch::showFind()
{
    show(m_findDialog);
}

void EditorSearch::showReplace()
{
    show(m_replaceDialog);
}
