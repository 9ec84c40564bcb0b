#include "sqltext/sqlTexts.h"

#include "platform/textForms.h"
#include "sqltext/Occurrences.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Converts a text in pieces: where a letter becomes two, QString moves all that comes after it.
template <typename Convert>
QString piecewise(QStringView text, Convert convert)
{
    constexpr qsizetype pieceSize = 256;
    QString result;
    result.reserve(text.size());
    while (!text.isEmpty()) {
        qsizetype size = std::min(text.size(), pieceSize);
        if (size < text.size() && text[size].isLowSurrogate())
            ++size;
        result += convert(text.first(size).toString());
        text = text.sliced(size);
    }
    return result;
}

} // namespace

QString upperCase(const QString &text)
{
    return piecewise(text, [](const QString &piece) { return piece.toUpper(); });
}

QString lowerCase(const QString &text)
{
    return piecewise(text, [](const QString &piece) { return piece.toLower(); });
}

QString properCase(const QString &text)
{
    QString result = text;
    bool wordStart = true;
    for (QChar &c : result) {
        c = wordStart ? c.toUpper() : c.toLower();
        wordStart = c.isNull() || isWhiteSpace(c);
    }
    return result;
}

QString commentLines(const QString &text)
{
    return u"--"_s + withExchanged(text, u"\r\n", u"\r\n--");
}

QString uncommentText(const QString &text)
{
    return withExchanged(text, u"--", {});
}
