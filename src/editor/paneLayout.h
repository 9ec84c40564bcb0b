#pragma once

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
