#include "controls/OneLineDelegate.h"

#include <algorithm>

using namespace Qt::StringLiterals;

QString OneLineDelegate::displayText(const QVariant &value, const QLocale &) const
{
    QString text = value.toString();
    const bool oneLine = std::none_of(text.cbegin(), text.cend(), [](QChar c) {
        return c < u' ' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
    });
    if (oneLine)
        return text;
    text.replace("\r\n"_L1, "\n"_L1);
    for (QChar &c : text) {
        if (c == u'\n' || c == u'\r' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator)
            c = QChar(0x21B5);
        else if (c < u' ')
            c = u' ';
    }
    return text;
}
