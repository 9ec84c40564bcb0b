#include "controls/editor/editorKeys.h"

#include "controls/editor/EditorControl.h"

#include <QApplication>
#include <QKeyEvent>

namespace {

/// The editor control hears of every key, and sees to this itself.
class AltCharacterStop : public QObject
{
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        return event->type() == QEvent::KeyPress && watched->isWidgetType() &&
               !qobject_cast<EditorControl *>(watched) &&
               typesAltCharacter(*static_cast<QKeyEvent *>(event));
    }
};

} // namespace

int windowsKeyCode(const QKeyEvent &event)
{
    const int key = event.key();
    switch (key) {
    case Qt::Key_Space:
        return 32;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return 9;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return 13;
    case Qt::Key_Backspace:
        return 8;
    case Qt::Key_Delete:
        return 46;
    case Qt::Key_ParenLeft:
        return '9';
    case Qt::Key_ParenRight:
        return '0';
    default:
        break;
    }
    // The number pad's digits have codes of their own there.
    const bool digit =
        key >= Qt::Key_0 && key <= Qt::Key_9 && !event.modifiers().testFlag(Qt::KeypadModifier);
    return digit ? key : 0;
}

int windowsShiftState(const QKeyEvent &event)
{
    const Qt::KeyboardModifiers modifiers = event.modifiers();
    return (modifiers.testFlag(Qt::ShiftModifier) ? 1 : 0) +
           (modifiers.testFlag(Qt::ControlModifier) ? 2 : 0) +
           (modifiers.testFlag(Qt::AltModifier) ? 4 : 0);
}

KeyCommand keyCommand(const QKeyEvent &event)
{
    const Qt::KeyboardModifiers modifiers =
        event.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
    if (modifiers != Qt::ControlModifier)
        return KeyCommand::None;
    const bool isShifted = event.modifiers().testFlag(Qt::ShiftModifier);
    switch (event.key()) {
    case Qt::Key_Space:
        return isShifted ? KeyCommand::None : KeyCommand::Complete;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        return KeyCommand::ZoomIn;
    case Qt::Key_Minus:
        return KeyCommand::ZoomOut;
    case Qt::Key_0:
        return KeyCommand::ZoomReset;
    case Qt::Key_Z:
        return isShifted ? KeyCommand::Redo : KeyCommand::Undo;
    case Qt::Key_Y:
        return KeyCommand::Redo;
    default:
        return KeyCommand::None;
    }
}

bool typesAltCharacter(const QKeyEvent &event)
{
    constexpr Qt::KeyboardModifiers commands =
        Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    return (event.modifiers() & commands) == Qt::AltModifier && !event.text().isEmpty() &&
           event.text().front().isPrint();
}

void stopAltCharacters()
{
    qApp->installEventFilter(new AltCharacterStop(qApp));
}
