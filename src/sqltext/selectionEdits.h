#pragma once

#include <QString>

/// What the toolbar's text commands make of a selected text.

/// Puts "--" before every line, the empty one behind a final line end included.
QString commentLines(const QString &text);

/// Takes out every "--", wherever it stands.
QString uncommentText(const QString &text);
