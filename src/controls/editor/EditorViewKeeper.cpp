#include "controls/editor/EditorViewKeeper.h"

#include <Qsci/qsciscintillabase.h>

using Sci = QsciScintillaBase;

EditorViewKeeper::EditorViewKeeper(QsciScintillaBase &editor)
    : m_editor(editor)
    , m_silence(&editor)
    , m_anchor(editor.SendScintilla(Sci::SCI_GETANCHOR))
    , m_caret(editor.SendScintilla(Sci::SCI_GETCURRENTPOS))
    , m_firstLine(editor.SendScintilla(Sci::SCI_GETFIRSTVISIBLELINE))
    , m_horizontal(editor.SendScintilla(Sci::SCI_GETXOFFSET))
{
}

EditorViewKeeper::~EditorViewKeeper()
{
    m_editor.SendScintilla(Sci::SCI_SETSEL, static_cast<unsigned long>(m_anchor), m_caret);
    m_editor.SendScintilla(Sci::SCI_SETFIRSTVISIBLELINE, m_firstLine);
    m_editor.SendScintilla(Sci::SCI_SETXOFFSET, m_horizontal);
}
