#include "editor/paneLayout.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int sideMargins = 200;
constexpr int dividerHeight = 50;
constexpr int statusBarHeight = 500;

} // namespace

float boundedSplitRatio(float ratio)
{
    return std::clamp(ratio, 0.05F, 0.8F);
}

PaneLayout layoutPanes(float splitRatio, const WindowMeasures &window)
{
    PaneLayout panes;
    panes.editorHeight = static_cast<int>(std::lround(window.innerHeight * splitRatio));
    panes.editorWidth = window.innerWidth - sideMargins;
    panes.tabTop = panes.editorHeight + window.editorTop + dividerHeight;
    panes.tabHeight = window.innerHeight - panes.editorHeight - dividerHeight -
                      window.toolbarHeight - statusBarHeight;
    panes.tabWidth = window.innerWidth - sideMargins;

    // What each tab page holds besides its pane: the tab's own header, and a toolbar or a box.
    panes.gridHeight = panes.tabHeight - 1000;
    panes.planHeight = panes.tabHeight - 750;
    panes.outputHeight = panes.tabHeight - 1125;
    panes.gridWidth = panes.planWidth = panes.outputWidth = panes.tabWidth - 100;
    return panes;
}
