#pragma once

#include <QString>

class EditorControl;
class QWidget;

/// The selected text of any control that has one: text boxes, combo boxes, the grids, the tree,
/// output panes. A control without a selection, or without text, has an empty one.

QString selText(const QWidget *control);

/// Replaces the selected text, or inserts at the caret. Controls that show and do not edit, and
/// read-only ones, stay as they are.
void setSelText(QWidget *control, const QString &text);

/// The editor control that has the keyboard focus; null when the focus is elsewhere.
EditorControl *focusedEditor();
