#include "controls/focusedEditor.h"

#include "controls/EditorControl.h"

#include <QApplication>

EditorControl *focusedEditor()
{
    return qobject_cast<EditorControl *>(QApplication::focusWidget());
}
