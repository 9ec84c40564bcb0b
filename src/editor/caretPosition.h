#pragma once

#include <QtGlobal>

class EditorControl;

/// Where the caret of an edit control stands, told by the control's window messages.

/// 1-based line of the selection's start.
qint32 CurrentLine(const EditorControl &txt);

/// 1-based column of the selection's start, in UTF-16 units.
qint32 CurrentColumn(const EditorControl &txt);

/// Both in one value: the column in the low half, the line in the high half.
/// @throws RuntimeError 6 when either is beyond 32767
qint32 caretLineColumn(const EditorControl &txt);
