#pragma once

class EditorControl;

/// What screen readers see of an editor control; offsets are UTF-16 units, as the control's own.
///
/// The widget underneath would bring an interface that counts all characters before the caret at
/// every key, whether somebody listens or not.

/// Has every editor control that comes seen so.
void installEditorAccessible();
/// Tells listeners, if there are any, where the caret is.
void tellCaret(EditorControl &editor);
