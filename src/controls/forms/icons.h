#pragma once

#include <QIcon>
#include <QString>

/// One of the program's pictures, by the name of its file below resources/icons without ".svg".
/// Its lines take the text colour of the palette that is in force when it is painted, so it can be
/// told apart on light and dark backgrounds, and it is drawn for the resolution asked for.
/// An unknown name gives a null icon.
QIcon themedIcon(const QString &name);
