#pragma once

#include <QString>

struct WindowControls;

/// Runs a statement with the server's output buffer on, as large as the window's box says, and
/// shows every line that it wrote.
/// @throws RuntimeError the server's; the lines that came before it stay in the pane, and the
///         server's buffer stays on until the next capture
void captureOutput(WindowControls &controls, const QString &statement);
