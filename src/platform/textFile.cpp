#include "platform/textFile.h"

#include <QByteArrayView>
#include <QStringConverter>

#include <algorithm>
#include <cstring>
#include <optional>

namespace {

/// Walks over the line ends of a text.
class LineEnds
{
public:
    explicit LineEnds(const QByteArray &text)
        : m_at(text.constData())
        , m_end(m_at + text.size())
        , m_cr(find(m_at, '\r'))
        , m_lf(find(m_at, '\n'))
    {
    }

    /// The text up to the next line end, which is passed over; all the rest when there is none.
    QByteArrayView nextLine()
    {
        const char *const begin = m_at;
        const char *const lineEnd = std::min(m_cr, m_lf);
        m_ended = lineEnd == m_end;
        if (m_ended) {
            m_at = m_end;
        } else {
            const bool both = m_lf != m_end && m_lf == lineEnd + 1;
            m_at = lineEnd + (both ? 2 : 1);
            m_wasCrLf = both;
            if (m_cr < m_at)
                m_cr = find(m_at, '\r');
            if (m_lf < m_at)
                m_lf = find(m_at, '\n');
        }
        return {begin, lineEnd};
    }
    /// Whether the last line was ended by the text's end.
    bool ended() const { return m_ended; }
    bool wasCrLf() const { return m_wasCrLf; }

private:
    const char *find(const char *from, char character) const
    {
        const void *found = std::memchr(from, character, static_cast<std::size_t>(m_end - from));
        return found ? static_cast<const char *>(found) : m_end;
    }

    const char *m_at;
    const char *m_end;
    const char *m_cr; ///< the next one at or behind m_at
    const char *m_lf;
    bool m_ended = false;
    bool m_wasCrLf = false;
};

/// Writes every line end as CR LF; gives the text itself back when that is how it came.
QByteArray withCrLf(const QByteArray &text)
{
    qsizetype ends = 0;
    qsizetype size = 0;
    bool allCrLf = true;
    for (LineEnds walk(text); !walk.ended();) {
        size += walk.nextLine().size();
        if (!walk.ended()) {
            ++ends;
            allCrLf = allCrLf && walk.wasCrLf();
        }
    }
    if (allCrLf)
        return text;

    QByteArray result(size + 2 * ends, Qt::Uninitialized);
    char *to = result.data();
    for (LineEnds walk(text); !walk.ended();) {
        const QByteArrayView line = walk.nextLine();
        to = std::copy(line.begin(), line.end(), to);
        if (!walk.ended()) {
            *to++ = '\r';
            *to++ = '\n';
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
