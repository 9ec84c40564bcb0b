#pragma once

#include <QAccessibleWidget>

class EditorControl;

/// What screen readers see of an editor control; offsets are UTF-16 units, as the control's own.
///
/// The widget underneath would bring one that counts all characters before the caret at every key,
/// whether somebody listens or not.
class EditorAccessible : public QAccessibleWidget, public QAccessibleTextInterface
{
public:
    explicit EditorAccessible(EditorControl &editor);

    /// Has every editor control that comes seen through this class.
    static void install();
    /// Tells listeners, if there are any, where the caret is.
    static void tellCaret(EditorControl &editor);

    void *interface_cast(QAccessible::InterfaceType type) override;
    QAccessible::State state() const override;

    void selection(int selectionIndex, int *startOffset, int *endOffset) const override;
    int selectionCount() const override;
    void addSelection(int startOffset, int endOffset) override;
    void removeSelection(int selectionIndex) override;
    void setSelection(int selectionIndex, int startOffset, int endOffset) override;
    int cursorPosition() const override;
    void setCursorPosition(int position) override;
    using QAccessibleWidget::text;
    QString text(int startOffset, int endOffset) const override;
    int characterCount() const override;
    QRect characterRect(int offset) const override;
    int offsetAtPoint(const QPoint &point) const override;
    void scrollToSubstring(int startIndex, int endIndex) override;
    QString attributes(int offset, int *startOffset, int *endOffset) const override;

private:
    EditorControl &m_editor;
};
