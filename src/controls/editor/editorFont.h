#pragma once

#include <QString>

/// Family of the fixed-width font that text is edited in: the desktop's own choice, or the first
/// good one that is installed.
QString fixedWidthFamily();

/// Size in points that text is edited in.
int defaultPoints();
