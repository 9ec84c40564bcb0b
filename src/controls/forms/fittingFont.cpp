#include "controls/forms/fittingFont.h"

#include <QFontInfo>
#include <QFontMetrics>
#include <QStringList>

#include <algorithm>

namespace {

constexpr int smallestPixelSize = 9;

int longestWord(const QFontMetrics &metrics, const QString &text)
{
    int longest = 0;
    for (const QString &word : text.split(u' '))
        longest = std::max(longest, metrics.horizontalAdvance(word));
    return longest;
}

} // namespace

QFont fittingFont(const QFont &font, const QString &text, int room)
{
    const int needed = longestWord(QFontMetrics(font), text);
    if (needed == 0 || needed <= room) // there may be less than no room
        return font;
    const int usual = QFontInfo(font).pixelSize();
    QFont smaller = font;
    smaller.setPixelSize(std::max(usual * room / needed, std::min(usual, smallestPixelSize)));
    return smaller;
}
