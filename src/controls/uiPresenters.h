#pragma once

/// Gives messages, the alert and the mouse pointer of platform/ their appearance on the desktop.
/// Called once, when there is an application object.
void installUiPresenters();
