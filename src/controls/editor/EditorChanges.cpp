#include "controls/editor/EditorChanges.h"

#include "controls/editor/EditorFormats.h"
#include "controls/editor/SyntaxColouring.h"

#include <Qsci/qsciscintilla.h>

#include <QTimer>

#include <utility>

namespace {

using Sci = QsciScintillaBase;

// In bytes; up to here nobody notices what the base class does after a change.
constexpr long largeText = 2 << 20;

bool isLarge(const QsciScintilla &editor)
{
    return editor.SendScintilla(Sci::SCI_GETLENGTH) > largeText;
}

} // namespace

EditorChanges::EditorChanges(QsciScintilla &editor, SyntaxColouring &colouring,
                             EditorFormats &formats)
    : m_editor(editor)
    , m_colouring(colouring)
    , m_formats(formats)
{
    listen();
    connect(
        &editor, &QsciScintillaBase::SCN_MODIFIED, this,
        [this](int position, int type, const char *, int length) { note(position, type, length); });
    connect(&editor, &QsciScintilla::textChanged, this, [this] {
        if (m_isLarge != isLarge(m_editor))
            listen();
    });
}

/// After every change that it tells of, the base class counts all characters before it for screen
/// readers, whether there are any or not. In a large text, and of many changes at once, only what
/// comes before a change is asked for, therefore.
void EditorChanges::listen()
{
    m_isLarge = isLarge(m_editor);
    if (m_isLarge)
        collect();
    else
        m_editor.SendScintilla(Sci::SCI_SETMODEVENTMASK,
                               Sci::SC_MOD_INSERTTEXT | Sci::SC_MOD_DELETETEXT);
}

void EditorChanges::collect()
{
    m_editor.SendScintilla(Sci::SCI_SETMODEVENTMASK,
                           Sci::SC_MOD_BEFOREINSERT | Sci::SC_MOD_BEFOREDELETE);
}

void EditorChanges::note(long position, int type, long length)
{
    const bool isBefore = (type & (Sci::SC_MOD_BEFOREINSERT | Sci::SC_MOD_BEFOREDELETE)) != 0;
    if ((type & (Sci::SC_MOD_INSERTTEXT | Sci::SC_MOD_BEFOREINSERT)) != 0)
        m_colouring.textInserted(position, length);
    else
        m_colouring.textDeleted(position, length);
    if (isBefore) {
        if (!std::exchange(m_isUntold, true))
            QTimer::singleShot(0, this, &EditorChanges::tell);
        return;
    }
    m_colouring.colourHugeLine(position);
    if ((type & Sci::SC_MOD_INSERTTEXT) != 0 && (type & Sci::SC_PERFORMED_USER) != 0)
        m_formats.textInserted(position, length);
}

void EditorChanges::tell()
{
    listen();
    if (!std::exchange(m_isUntold, false))
        return;
    emit m_editor.linesChanged();
    emit m_editor.textChanged();
}
