#include "controls/editor/EditorMarks.h"

#include <Qsci/qsciscintilla.h>

#include <QHelpEvent>
#include <QToolTip>

using Sci = QsciScintilla;

namespace {

/// Both stand on lines and move with them. The first is what is seen.
enum Marker { FirstLine, LastLine };

constexpr unsigned long bit(Marker marker)
{
    return 1UL << marker;
}

} // namespace

/// The texts are the lines' annotations, which are never shown as such.
EditorMarks::EditorMarks(QsciScintilla &editor)
    : m_editor(editor)
{
    constexpr long orangeRed = 0x2040E0; // blue, green, red
    editor.SendScintilla(Sci::SCI_MARKERDEFINE, FirstLine, Sci::SC_MARK_FULLRECT);
    editor.SendScintilla(Sci::SCI_MARKERSETBACK, FirstLine, orangeRed);
    editor.SendScintilla(Sci::SCI_MARKERDEFINE, LastLine, Sci::SC_MARK_EMPTY);
    editor.SendScintilla(Sci::SCI_ANNOTATIONSETVISIBLE, Sci::ANNOTATION_HIDDEN);
    connect(&editor, &QsciScintillaBase::SCN_MODIFIED, this,
            [this](int position, int type, const char *, int length) {
                const auto lineAt = [this](long at) {
                    return m_editor.SendScintilla(Sci::SCI_LINEFROMPOSITION, at);
                };
                const bool goes = (type & Sci::SC_MOD_BEFOREDELETE) != 0;
                forget(lineAt(position), lineAt(goes ? position + length : position));
            });
    editor.viewport()->installEventFilter(this);
}

void EditorMarks::add(long firstLine, long lastLine, const QString &text)
{
    const QString earlier = m_editor.annotation(static_cast<int>(firstLine));
    const QByteArray all = (earlier.isEmpty() ? text : earlier + u'\n' + text).toUtf8();
    m_editor.SendScintilla(Sci::SCI_ANNOTATIONSETTEXT, firstLine, all.constData());
    m_editor.SendScintilla(Sci::SCI_MARKERADD, firstLine, FirstLine);
    m_editor.SendScintilla(Sci::SCI_MARKERADD, lastLine, LastLine);
    ++m_count;
}

void EditorMarks::clear()
{
    m_editor.SendScintilla(Sci::SCI_MARKERDELETEALL, FirstLine);
    m_editor.SendScintilla(Sci::SCI_MARKERDELETEALL, LastLine);
    m_editor.SendScintilla(Sci::SCI_ANNOTATIONCLEARALL);
    m_editor.viewport()->update();
    m_count = 0;
}

/// Takes off the marks of places that share a line with these. Places follow each other, so the
/// last line next to a first one is that of the same place.
void EditorMarks::forget(long firstLine, long lastLine)
{
    // Marks go with a text that is deleted whole, but stay in the picture.
    if (m_count > 0 && m_editor.length() == 0)
        clear();
    while (m_count > 0) {
        const long first =
            m_editor.SendScintilla(Sci::SCI_MARKERPREVIOUS, lastLine, bit(FirstLine));
        if (first < 0)
            return;
        const long last = m_editor.SendScintilla(Sci::SCI_MARKERNEXT, first, bit(LastLine));
        if (last < firstLine)
            return;
        m_editor.SendScintilla(Sci::SCI_MARKERDELETE, first, FirstLine);
        m_editor.SendScintilla(Sci::SCI_MARKERDELETE, last, LastLine);
        m_editor.clearAnnotations(static_cast<int>(first));
        --m_count;
    }
}

bool EditorMarks::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QObject::eventFilter(watched, event);
    const auto *help = static_cast<QHelpEvent *>(event);
    int margins = 0;
    for (int margin = 0; margin < m_editor.margins(); ++margin)
        margins += m_editor.marginWidth(margin);
    const long place = m_editor.SendScintilla(Sci::SCI_POSITIONFROMPOINT,
                                              static_cast<unsigned long>(help->x()), help->y());
    const long line = m_editor.SendScintilla(Sci::SCI_LINEFROMPOSITION, place);
    const QString text = m_editor.annotation(static_cast<int>(line));
    QToolTip::showText(help->globalPos(), help->x() < margins ? text : QString(), &m_editor);
    return true;
}
