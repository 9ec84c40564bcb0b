#include "editor/windowLook.h"

#include "platform/textForms.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int shownCharacters = 30;

// In twips.
constexpr int sideMargins = 200;
constexpr int dividerHeight = 50;
constexpr int statusBarHeight = 500;

} // namespace

QString captionAtLoad(const QString &userName, const QString &tnsName)
{
    return userName.toUpper() + u'@' + tnsName.toUpper() + u" - SQL Editor"_s;
}

QString captionWithText(const QString &userName, const QString &tnsName, const QString &text)
{
    return captionAtLoad(userName, tnsName) + u": "_s + trimBlanks(text).left(shownCharacters) +
           u"..."_s;
}

QString titleOf(QString caption)
{
    for (QChar &character : caption) {
        if (character.isSpace() || character.category() == QChar::Other_Control)
            character = u' ';
    }
    return caption.replace(u"[*]"_s, u"[*][*]"_s);
}

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
