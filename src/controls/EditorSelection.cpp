#include "controls/EditorSelection.h"

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
