#pragma once

#include <QFont>
#include <QString>

/// Family of the fixed-width font that text is edited in: the desktop's own choice, or the first
/// good one that is installed.
QString fixedWidthFamily();

/// Size in points that text is edited in.
int defaultPoints();

/// @p font, or a smaller one in which the longest word of @p text is not wider than @p room pixels.
/// What would be too small to be read is not made any smaller.
QFont fittingFont(const QFont &font, const QString &text, int room);
