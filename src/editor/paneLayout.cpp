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
    panes.width = window.innerWidth - sideMargins;
    panes.pageWidth = panes.width - 100;
    panes.editorHeight = static_cast<int>(std::lround(window.innerHeight * splitRatio));
    panes.tabTop = panes.editorHeight + window.toolbarHeight + dividerHeight;
    panes.tabHeight = window.innerHeight - panes.editorHeight - dividerHeight -
                      window.toolbarHeight - statusBarHeight;

    // What each tab page holds besides its pane: the tab's own header, and a toolbar or a box.
    panes.gridHeight = panes.tabHeight - 1000;
    panes.planHeight = panes.tabHeight - 750;
    panes.outputHeight = panes.tabHeight - 1125;
    return panes;
}
