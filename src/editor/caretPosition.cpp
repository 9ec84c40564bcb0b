#include "editor/caretPosition.h"

#include "controls/editor/EditorControl.h"
#include "platform/checkedArithmetic.h"

qint32 CurrentLine(const EditorControl &txt)
{
    return txt.lineFromCharacter(txt.SelStart()) + 1;
}

qint32 CurrentColumn(const EditorControl &txt)
{
    const int start = txt.SelStart();
    return start + 1 - txt.lineIndex(txt.lineFromCharacter(start));
}

qint32 caretLineColumn(const EditorControl &txt)
{
    constexpr int caretLine = -1;
    const Int16 line = txt.lineFromCharacter(caretLine) + 1;
    const Int16 column = txt.SelStart() - txt.lineIndex(caretLine) + 1;
    return (qint32{line.value()} << 16) | column.value();
}
