#pragma once

class QKeyEvent;

/// What keys mean to the editor control.

/// The Windows virtual-key code of the keys that the editor's owner distinguishes, 0 of others.
/// An opening or closing parenthesis is reported as the digit that it stands over on a US
/// keyboard, wherever it stands on this one.
int windowsKeyCode(const QKeyEvent &event);

/// 1 Shift + 2 Ctrl + 4 Alt.
int windowsShiftState(const QKeyEvent &event);

enum class KeyCommand { None, Complete, ZoomIn, ZoomOut, ZoomReset, Undo, Redo };

/// Ctrl+Space; Ctrl with plus, minus or 0, on either part of the keyboard; Ctrl+Z, Ctrl+Y and
/// Ctrl+Shift+Z.
KeyCommand keyCommand(const QKeyEvent &event);

/// Whether a key is Alt with a character. The toolkit's text boxes would type it, where it is
/// nobody's access key.
bool typesAltCharacter(const QKeyEvent &event);

/// From now on, no text box of the program types such a character.
void stopAltCharacters();
