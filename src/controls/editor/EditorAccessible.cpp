#include "controls/editor/EditorAccessible.h"

#include "controls/editor/EditorControl.h"

using Sci = QsciScintillaBase;

namespace {

QAccessibleInterface *create(const QString &, QObject *object)
{
    auto *editor = qobject_cast<EditorControl *>(object);
    return editor ? new EditorAccessible(*editor) : nullptr;
}

} // namespace

EditorAccessible::EditorAccessible(EditorControl &editor)
    : QAccessibleWidget(&editor, QAccessible::EditableText)
    , m_editor(editor)
{
}

void EditorAccessible::install()
{
    // Has to come after the widget's own, which its constructor installs: the last one is asked
    // first.
    static const bool installed = [] {
        QAccessible::installFactory(create);
        return true;
    }();
    Q_UNUSED(installed);
}

void EditorAccessible::tellCaret(EditorControl &editor)
{
    if (!QAccessible::isActive())
        return;
    QAccessibleTextCursorEvent event(&editor, editor.caretPosition());
    QAccessible::updateAccessibility(&event);
}

void *EditorAccessible::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::TextInterface)
        return static_cast<QAccessibleTextInterface *>(this);
    return QAccessibleWidget::interface_cast(type);
}

QAccessible::State EditorAccessible::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.selectableText = true;
    state.multiLine = true;
    state.readOnly = m_editor.isReadOnly();
    state.editable = !m_editor.isReadOnly();
    return state;
}

void EditorAccessible::selection(int selectionIndex, int *startOffset, int *endOffset) const
{
    const bool exists = selectionIndex >= 0 && selectionIndex < selectionCount();
    *startOffset = exists ? m_editor.SelStart() : 0;
    *endOffset = exists ? m_editor.SelStart() + m_editor.SelLength() : 0;
}

int EditorAccessible::selectionCount() const
{
    return m_editor.SelLength() > 0 ? 1 : 0;
}

void EditorAccessible::addSelection(int startOffset, int endOffset)
{
    setSelection(0, startOffset, endOffset);
}

void EditorAccessible::removeSelection(int)
{
    m_editor.setSelLength(0);
}

void EditorAccessible::setSelection(int, int startOffset, int endOffset)
{
    m_editor.setSelStart(startOffset);
    m_editor.setSelLength(endOffset - startOffset);
}

int EditorAccessible::cursorPosition() const
{
    return m_editor.caretPosition();
}

void EditorAccessible::setCursorPosition(int position)
{
    m_editor.setSelStart(position);
}

QString EditorAccessible::text(int startOffset, int endOffset) const
{
    return m_editor.textBetween(startOffset, endOffset);
}

int EditorAccessible::characterCount() const
{
    return m_editor.textLength();
}

QRect EditorAccessible::characterRect(int offset) const
{
    return m_editor.characterRectangle(offset);
}

int EditorAccessible::offsetAtPoint(const QPoint &point) const
{
    return m_editor.positionAt(m_editor.viewport()->mapFromGlobal(point));
}

void EditorAccessible::scrollToSubstring(int startIndex, int)
{
    m_editor.ensureLineVisible(m_editor.lineFromCharacter(startIndex));
}

QString EditorAccessible::attributes(int, int *startOffset, int *endOffset) const
{
    *startOffset = 0;
    *endOffset = characterCount();
    return {};
}
