#pragma once

#include <QColor>
#include <QImage>
#include <QString>

/// The program's icons, as images. One kind of build draws them from SVG when they are wanted,
/// another has had them drawn while it was built and needs no SVG library.

/// Whether there is an icon of that name.
bool hasIcon(const QString &name);

/// The icon @p name.
/// @param size    in pixels of the device
/// @param colour  what `currentColor` in the icon is
QImage iconImage(const QString &name, const QSize &size, const QColor &colour);
