#include "controls/editor/EditorAccessible.h"

#include "controls/editor/EditorControl.h"

#include <QAccessibleWidget>

namespace {

class EditorAccessible : public QAccessibleWidget, public QAccessibleTextInterface
{
public:
    explicit EditorAccessible(EditorControl &editor)
        : QAccessibleWidget(&editor, QAccessible::EditableText)
        , m_editor(editor)
    {
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::TextInterface)
            return static_cast<QAccessibleTextInterface *>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.selectableText = true;
        state.multiLine = true;
        state.readOnly = m_editor.isReadOnly();
        state.editable = !m_editor.isReadOnly();
        return state;
    }

    void selection(int selectionIndex, int *startOffset, int *endOffset) const override
    {
        const bool exists = selectionIndex >= 0 && selectionIndex < selectionCount();
        *startOffset = exists ? m_editor.SelStart() : 0;
        *endOffset = exists ? m_editor.SelStart() + m_editor.SelLength() : 0;
    }
    int selectionCount() const override { return m_editor.SelLength() > 0 ? 1 : 0; }
    void addSelection(int startOffset, int endOffset) override
    {
        setSelection(0, startOffset, endOffset);
    }
    void removeSelection(int) override { m_editor.setSelLength(0); }
    void setSelection(int, int startOffset, int endOffset) override
    {
        m_editor.setSelStart(startOffset);
        m_editor.setSelLength(endOffset - startOffset);
    }

    int cursorPosition() const override { return m_editor.caretPosition(); }
    void setCursorPosition(int position) override { m_editor.setSelStart(position); }

    using QAccessibleWidget::text;
    QString text(int startOffset, int endOffset) const override
    {
        return m_editor.textBetween(startOffset, endOffset);
    }
    int characterCount() const override { return m_editor.textLength(); }
    QString attributes(int, int *startOffset, int *endOffset) const override
    {
        *startOffset = 0;
        *endOffset = characterCount();
        return {};
    }

    QRect characterRect(int offset) const override { return m_editor.characterRectangle(offset); }
    int offsetAtPoint(const QPoint &point) const override
    {
        return m_editor.positionAt(m_editor.viewport()->mapFromGlobal(point));
    }
    void scrollToSubstring(int startIndex, int) override
    {
        m_editor.ensureLineVisible(m_editor.lineFromCharacter(startIndex));
    }

private:
    EditorControl &m_editor;
};

QAccessibleInterface *create(const QString &, QObject *object)
{
    auto *editor = qobject_cast<EditorControl *>(object);
    return editor ? new EditorAccessible(*editor) : nullptr;
}

} // namespace

void installEditorAccessible()
{
    // Has to come after the widget's own, which its constructor installs: the last one is asked
    // first.
    static const bool installed = (QAccessible::installFactory(create), true);
    Q_UNUSED(installed);
}

void tellCaret(EditorControl &editor)
{
    if (!QAccessible::isActive())
        return;
    QAccessibleTextCursorEvent event(&editor, editor.caretPosition());
    QAccessible::updateAccessibility(&event);
}
