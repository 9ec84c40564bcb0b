#pragma once

class QToolBar;

/// Shows the tooltips of @p bar's buttons with the keys that do the same, as "Commit (F9)"; the
/// buttons that are on the bar when this is called. An action whose key is another action's, of
/// the menu for example, carries that key as its data.
void showKeysInToolTips(QToolBar &bar);
