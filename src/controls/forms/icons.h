#pragma once

#include <QColor>
#include <QIcon>
#include <QImage>
#include <QKeySequence>
#include <QLatin1StringView>
#include <QList>
#include <QString>

#include <functional>

class QToolBar;

/// One of the program's pictures, by the name of its file below resources/icons without ".svg".
/// Its lines take the text colour of the palette that is in force when it is painted, so it can be
/// told apart on light and dark backgrounds, and it is drawn for the resolution asked for.
/// An unknown name gives a null icon.
QIcon themedIcon(const QString &name);

// What they are made of. One kind of build draws the images from SVG when they are wanted, another
// has had them drawn while it was built and needs no SVG library.

/// Whether there is an icon of that name.
bool hasIcon(const QString &name);

/// The icon @p name.
/// @param size    in pixels of the device
/// @param colour  what `currentColor` in the icon is
QImage iconImage(const QString &name, const QSize &size, const QColor &colour);

struct ToolBarButton
{
    QLatin1StringView toolTip; ///< empty for a separator
    QLatin1StringView icon;
    QList<QKeySequence> shortcuts;
    QKeySequence menuKey = {}; ///< where a menu item does the same and has the key
};

/// Puts buttons on @p bar, as actions with the bar's name and their place: `tbrQuerna_1`. Their
/// tooltips are shown with the keys that do the same, as "Commit (F9)".
/// @param pressed  is given the button's place, counted from 1
void addButtons(QToolBar &bar, const QList<ToolBarButton> &buttons,
                const std::function<void(int index)> &pressed);
