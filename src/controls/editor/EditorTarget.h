#pragma once

#include "controls/editor/EditorControl.h"

#include <QPointer>
#include <QWidget>

/// What a dialog works on: an editor control, and the window that gets the focus back. Either may
/// go away while the dialog is open.
class EditorTarget
{
public:
    EditorTarget() = default;
    EditorTarget(EditorControl *control, QWidget *window);

    /// Whether there is an editor control (still).
    bool exists() const { return m_control; }
    /// @throws RuntimeError 91 when there is none
    EditorControl &control() const;
    /// Gives the window the focus; inside it, the control that had it last receives it. While a
    /// modal dialog is open, the window gets it when that closes.
    /// @throws RuntimeError 91 when there is no window
    void focusWindow() const;

private:
    QPointer<EditorControl> m_control;
    QPointer<QWidget> m_window;
};
