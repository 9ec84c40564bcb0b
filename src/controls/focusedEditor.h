#pragma once

class EditorControl;

/// The editor control that has the keyboard focus; null when the focus is elsewhere.
EditorControl *focusedEditor();
