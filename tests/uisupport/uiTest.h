#pragma once

/// What every test of forms and controls includes.

#include "controls/editor/EditorControl.h"
#include "controls/forms/CommonDialog.h"
#include "support/coreTest.h"
#include "uisupport/ModalAnswers.h"
#include "uisupport/userActions.h"

#include <QtWidgets>

enum class MousePointer { Default, Hourglass };

/// The shape that the pointer has now, over every window of the program.
inline MousePointer mousePointer()
{
    return QGuiApplication::overrideCursor() ? MousePointer::Hourglass : MousePointer::Default;
}
