#pragma once

class QWidget;
struct WindowControls;

/// Keys that lead around an editor window: Alt+1 to Alt+3 show the tabs and leave the focus where
/// it is; F4 goes from the editor into the tab that is showing, and from anywhere else to the
/// editor, which keeps the Tab key to itself.
void addPaneKeys(QWidget &window, const WindowControls &controls);
