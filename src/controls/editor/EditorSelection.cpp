#include "controls/editor/EditorText.h"

#include <Qsci/qsciscintillabase.h>

#include <algorithm>

using Sci = QsciScintillaBase;

std::vector<ByteRange> selectedRanges(const QsciScintillaBase &editor)
{
    if (editor.SendScintilla(Sci::SCI_GETSELECTIONEMPTY) != 0) {
        const long caret = editor.SendScintilla(Sci::SCI_GETCURRENTPOS);
        return {{caret, caret}};
    }
    std::vector<ByteRange> ranges;
    const long count = editor.SendScintilla(Sci::SCI_GETSELECTIONS);
    for (long row = 0; row < count; ++row)
        ranges.push_back({editor.SendScintilla(Sci::SCI_GETSELECTIONNSTART, row),
                          editor.SendScintilla(Sci::SCI_GETSELECTIONNEND, row)});
    // A block that was drawn upwards counts its rows from the bottom.
    if (ranges.front().begin > ranges.back().begin)
        std::reverse(ranges.begin(), ranges.end());
    return ranges;
}

QByteArray textBytes(const QsciScintillaBase &editor, const ByteRange &range)
{
    QByteArray bytes(range.length() + 1, Qt::Uninitialized);
    editor.SendScintilla(Sci::SCI_GETTEXTRANGE, range.begin, range.end, bytes.data());
    bytes.chop(1);
    return bytes;
}

void exchangeBytes(QsciScintillaBase &editor, const ByteRange &range, const QByteArray &text)
{
    editor.SendScintilla(Sci::SCI_SETTARGETRANGE, static_cast<unsigned long>(range.begin),
                         range.end);
    editor.SendScintilla(Sci::SCI_REPLACETARGET, static_cast<uintptr_t>(text.size()),
                         text.constData());
}
