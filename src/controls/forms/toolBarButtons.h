#pragma once

#include <QKeySequence>
#include <QLatin1StringView>
#include <QList>

#include <functional>

class QToolBar;

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
