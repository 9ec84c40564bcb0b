#pragma once

#include <QString>

/// How an editor window looks from without and within, found without a window: its caption, where
/// user and database names are in capitals, and its panes.

/// `SCOTT@ORCL - SQL Editor`, before there is a text to name.
QString captionAtLoad(const QString &userName, const QString &tnsName);

/// The same with the beginning of the text: its first 30 characters (UTF-16 units), blanks at its
/// ends left out, and always an ellipsis.
QString captionWithText(const QString &userName, const QString &tnsName, const QString &text);

/// @p caption as the title of a window: what has no picture, such as a line end, is a blank, and
/// `[*]`, which the toolkit takes as a mark of its own, is shown as it stands.
QString titleOf(QString caption);

/// Sizes of an editor window's panes, all in twips.
struct PaneLayout
{
    int width = 0; ///< of the editor and the tabs
    int editorHeight = 0;
    int tabTop = 0;
    int tabHeight = 0;
    int pageWidth = 0; ///< of what the tabs show
    int gridHeight = 0;
    int planHeight = 0;
    int outputHeight = 0;
};

/// What the panes are laid out in, in twips.
struct WindowMeasures
{
    int innerWidth = 0;
    int innerHeight = 0;
    int toolbarHeight = 0; ///< above the editor
};

/// A window smaller than this, either way, keeps the layout that it has. In twips.
inline constexpr int smallestLaidOutWindow = 2000;

/// The editor's share of the height, kept within 5 % and 80 %.
float boundedSplitRatio(float ratio);

/// Lays the panes out.
/// @param splitRatio  the editor's share of the inner height, bounded already
PaneLayout layoutPanes(float splitRatio, const WindowMeasures &window);
