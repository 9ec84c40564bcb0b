#include "platform/files.h"

#include <QByteArrayView>
#include <QStringConverter>

#include <algorithm>
#include <cstring>
#include <optional>

namespace {

/// Calls @p use with each line and the length of its end, which is 0 at the text's end.
template <typename Use>
void forEachLine(const QByteArray &text, const Use &use)
{
    const char *at = text.constData();
    const char *const end = at + text.size();
    const auto find = [end](const char *from, char character) {
        const void *found = std::memchr(from, character, static_cast<std::size_t>(end - from));
        return found ? static_cast<const char *>(found) : end;
    };
    const char *cr = find(at, '\r');
    const char *lf = find(at, '\n');
    while (cr != lf) {
        const char *const lineEnd = std::min(cr, lf);
        const qsizetype length = cr + 1 == lf && lf != end ? 2 : 1;
        use(QByteArrayView(at, lineEnd), length);
        at = lineEnd + length;
        if (cr < at)
            cr = find(at, '\r');
        if (lf < at)
            lf = find(at, '\n');
    }
    use(QByteArrayView(at, end), 0);
}

/// Writes every line end as CR LF; gives the text itself back when that is how it came.
QByteArray withCrLf(const QByteArray &text)
{
    qsizetype size = 0;
    bool allCrLf = true;
    forEachLine(text, [&](QByteArrayView line, qsizetype end) {
        size += line.size() + (end == 0 ? 0 : 2);
        allCrLf = allCrLf && end != 1;
    });
    if (allCrLf)
        return text;
    QByteArray result(size, Qt::Uninitialized);
    char *to = result.data();
    forEachLine(text, [&to](QByteArrayView line, qsizetype end) {
        to = std::copy(line.begin(), line.end(), to);
        if (end > 0)
            to = std::copy_n("\r\n", 2, to);
    });
    return result;
}

/// QString::toUtf8() writes a question mark for half a surrogate pair, which reads as if
/// somebody had typed it.
QString withoutUnpairedSurrogates(const QString &text)
{
    if (text.isValidUtf16())
        return text;
    QString result = text;
    for (qsizetype i = 0; i < result.size(); ++i) {
        if (!result.at(i).isSurrogate())
            continue;
        if (result.at(i).isHighSurrogate() && i + 1 < result.size() &&
            result.at(i + 1).isLowSurrogate())
            ++i;
        else
            result[i] = QChar::ReplacementCharacter;
    }
    return result;
}

/// Text in UTF-16 without a mark gives itself away by the zero half of its Latin letters.
std::optional<QStringConverter::Encoding> unmarkedUtf16(const QByteArray &bytes)
{
    constexpr qsizetype sample = 4096;
    const qsizetype pairs = std::min(bytes.size(), sample) / 2;
    if (pairs == 0 || bytes.size() % 2 != 0)
        return std::nullopt;
    qsizetype zeroFirst = 0;
    qsizetype zeroSecond = 0;
    for (qsizetype i = 0; i < pairs; ++i) {
        zeroFirst += bytes[2 * i] == 0;
        zeroSecond += bytes[2 * i + 1] == 0;
    }
    const auto most = [pairs](qsizetype count) { return count * 10 >= pairs * 7; };
    const auto few = [pairs](qsizetype count) { return count * 20 <= pairs; };
    if (most(zeroSecond) && few(zeroFirst))
        return QStringConverter::Utf16LE;
    if (most(zeroFirst) && few(zeroSecond))
        return QStringConverter::Utf16BE;
    return std::nullopt;
}

/// The mark has been taken off; what looks like another one is a character.
QByteArray decoded(const QByteArray &bytes, QStringConverter::Encoding encoding)
{
    using Flag = QStringConverter::Flag;
    QStringDecoder decode(encoding, Flag::Stateless | Flag::ConvertInitialBom);
    return editorUtf8(decode(bytes));
}

} // namespace

QByteArray editorUtf8(const QString &text)
{
    return withCrLf(withoutUnpairedSurrogates(text).toUtf8());
}

QByteArray editorUtf8FromFile(const QByteArray &bytes)
{
    if (bytes.startsWith("\xEF\xBB\xBF"))
        return decoded(bytes.mid(3), QStringConverter::Utf8);
    if (bytes.startsWith("\xFF\xFE"))
        return decoded(bytes.mid(2), QStringConverter::Utf16LE);
    if (bytes.startsWith("\xFE\xFF"))
        return decoded(bytes.mid(2), QStringConverter::Utf16BE);
    if (const auto encoding = unmarkedUtf16(bytes))
        return decoded(bytes, *encoding);
    return withCrLf(bytes.isValidUtf8() ? bytes : QString::fromLatin1(bytes).toUtf8());
}
