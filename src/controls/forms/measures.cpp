#include "controls/forms/measures.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetrics>
#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

#ifdef Q_OS_WIN
constexpr bool choosesOldest = true;
#else
constexpr bool choosesOldest = false;
#endif

constexpr int smallestPixelSize = 9;

int longestWord(const QFontMetrics &metrics, const QString &text)
{
    int longest = 0;
    for (const QString &word : text.split(u' '))
        longest = std::max(longest, metrics.horizontalAdvance(word));
    return longest;
}

} // namespace

QString fixedWidthFamily()
{
    // The desktop may name an alias, behind which any font can stand. Windows has no choice of the
    // user's there, and names the oldest of its fonts.
    const QFontInfo chosen(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    if (!choosesOldest && QFontDatabase::isFixedPitch(chosen.family()))
        return chosen.family();
    for (const QString &family :
         {u"Cascadia Mono"_s, u"JetBrains Mono"_s, u"Noto Sans Mono"_s, u"DejaVu Sans Mono"_s,
          u"Liberation Mono"_s, u"Consolas"_s, u"Menlo"_s, u"Courier New"_s}) {
        if (QFontDatabase::hasFamily(family))
            return family;
    }
    return chosen.family();
}

int defaultPoints()
{
    constexpr int smallest = 10;
    const QFontInfo chosen(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    return std::max(chosen.pointSize(), smallest);
}

QFont fixedWidthFont()
{
    return QFont(fixedWidthFamily(), defaultPoints());
}

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
