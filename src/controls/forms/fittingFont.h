#pragma once

#include <QFont>
#include <QString>

/// @p font, or a smaller one in which the longest word of @p text is not wider than @p room pixels.
/// What would be too small to be read is not made any smaller.
QFont fittingFont(const QFont &font, const QString &text, int room);
