#include "controls/editor/editorFont.h"

#include <QFontDatabase>
#include <QFontInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

#ifdef Q_OS_WIN
constexpr bool choosesOldest = true;
#else
constexpr bool choosesOldest = false;
#endif

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
