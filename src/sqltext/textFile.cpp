#include "sqltext/textFile.h"

#include "platform/FileHandle.h"

#include <QFileInfo>
#include <QStringConverter>

#include <algorithm>
#include <optional>

namespace {

constexpr qint64 largestFile = qint64{1} << 30;

/// Writes every line end as CR LF; gives the text back unshared when that is how it came.
QByteArray withCrLf(const QByteArray &text)
{
    const char *begin = text.constData();
    const char *end = begin + text.size();
    qsizetype additional = 0;
    for (const char *at = begin; at != end; ++at) {
        if (*at == '\n')
            additional += at == begin || at[-1] != '\r';
        else if (*at == '\r')
            additional += at + 1 == end || at[1] != '\n';
    }
    if (additional == 0)
        return text;

    QByteArray result(text.size() + additional, Qt::Uninitialized);
    char *to = result.data();
    for (const char *at = begin; at != end; ++at) {
        if (*at == '\r' || *at == '\n') {
            *to++ = '\r';
            *to++ = '\n';
            if (*at == '\r' && at + 1 != end && at[1] == '\n')
                ++at;
        } else {
            *to++ = *at;
        }
    }
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

QByteArray fromUtf16(const QByteArray &bytes, QStringConverter::Encoding encoding)
{
    QStringDecoder decode(encoding);
    return editorUtf8(decode(bytes));
}

} // namespace

QByteArray editorUtf8(const QString &text)
{
    return withCrLf(withoutUnpairedSurrogates(text).toUtf8());
}

QByteArray editorUtf8FromFile(const QByteArray &bytes)
{
    if (bytes.startsWith("\xEF\xBB\xBF")) {
        const QByteArray text = bytes.mid(3);
        return withCrLf(text.isValidUtf8() ? text : QString::fromUtf8(text).toUtf8());
    }
    if (bytes.startsWith("\xFF\xFE"))
        return fromUtf16(bytes.mid(2), QStringConverter::Utf16LE);
    if (bytes.startsWith("\xFE\xFF"))
        return fromUtf16(bytes.mid(2), QStringConverter::Utf16BE);
    if (const auto encoding = unmarkedUtf16(bytes))
        return fromUtf16(bytes, *encoding);
    return withCrLf(bytes.isValidUtf8() ? bytes : QString::fromLatin1(bytes).toUtf8());
}

QByteArray readWholeFile(const QString &path)
{
    const QFileInfo info(path);
    // Opening a pipe would wait for somebody to write into it.
    if (info.exists() && !info.isFile())
        throw RuntimeError(ErrorNumber::PathFileAccessError);
    FileHandle file(path, FileHandle::Mode::Read);
    if (info.size() > largestFile)
        throw RuntimeError(ErrorNumber::OutOfMemory);
    QByteArray content(info.size(), Qt::Uninitialized);
    content.resize(
        static_cast<qsizetype>(file.read(content.data(), static_cast<size_t>(content.size()))));
    return content;
}
