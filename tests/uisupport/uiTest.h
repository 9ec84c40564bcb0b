#pragma once

/// What every test of forms and controls includes.

#include "controls/editor/EditorControl.h"
#include "controls/forms/messageBox.h"
#include "support/coreTest.h"
#include "uisupport/ModalAnswers.h"
#include "uisupport/accessibleNames.h"
#include "uisupport/userActions.h"

#include <QtWidgets>
