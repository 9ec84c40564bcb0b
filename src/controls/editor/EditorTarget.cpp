#include "controls/editor/EditorTarget.h"

#include "platform/RuntimeError.h"

#include <QApplication>

EditorTarget::EditorTarget(EditorControl *control, QWidget *window)
    : m_control(control)
    , m_window(window)
{
}

EditorControl &EditorTarget::control() const
{
    if (!m_control)
        throw RuntimeError(ErrorNumber::ObjectVariableNotSet);
    return *m_control;
}

void EditorTarget::focusWindow() const
{
    if (!m_window)
        throw RuntimeError(ErrorNumber::ObjectVariableNotSet);
    if (!QApplication::activeModalWidget())
        m_window->activateWindow();
    QWidget *inner = m_window->focusWidget();
    (inner ? inner : m_window.data())->setFocus();
}
