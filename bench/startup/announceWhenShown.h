#pragma once

class QWidget;

/// Writes a line to the standard output as soon as a widget that @p isAwaited knows has been
/// painted and nothing else is left to do. Made for static initialisation: it acts when the
/// application object is there.
void announceWhenShown(bool (*isAwaited)(const QWidget &widget));
