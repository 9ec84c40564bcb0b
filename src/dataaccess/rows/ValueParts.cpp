#include "dataaccess/rows/ValueParts.h"

#include <QLocale>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype bytesInLine = 16;
/// Their lines take about as many characters as a part of a text.
constexpr qsizetype bytesInPart = ValueParts::partSize / 4 / bytesInLine * bytesInLine;

QString dumpLine(qsizetype offset, QByteArrayView bytes)
{
    QString line = u"%1 "_s.arg(offset, 8, 16, QChar(u'0')).toUpper();
    QString characters;
    for (const char byte : bytes) {
        const auto code = static_cast<quint8>(byte);
        line += u" %1"_s.arg(code, 2, 16, QChar(u'0')).toUpper();
        characters += QLatin1Char(code >= 0x20 && code < 0x7F ? byte : '.');
    }
    return line.leftJustified(8 + 1 + 3 * bytesInLine) + u"  "_s + characters;
}

} // namespace

ValueParts::ValueParts(const Value &value)
{
    if (const auto *bytes = std::get_if<QByteArray>(&value.variant())) {
        m_isBinary = true;
        m_bytes = *bytes;
    } else {
        m_text = value.toText();
    }
}

qsizetype ValueParts::count() const
{
    const qsizetype size = m_isBinary ? m_bytes.size() : m_text.size();
    const qsizetype inPart = m_isBinary ? bytesInPart : partSize;
    return std::max<qsizetype>((size + inPart - 1) / inPart, 1);
}

/// Where a part begins and the one before it ends.
qsizetype ValueParts::textEdge(qsizetype part) const
{
    const qsizetype edge = std::min(part * partSize, m_text.size());
    if (edge == 0 || edge == m_text.size())
        return edge;
    const QChar before = m_text[edge - 1];
    const bool cuts = (before == u'\r' && m_text[edge] == u'\n') ||
                      (before.isHighSurrogate() && m_text[edge].isLowSurrogate());
    return cuts ? edge - 1 : edge;
}

QString ValueParts::part(qsizetype part) const
{
    if (!m_isBinary)
        return m_text.mid(textEdge(part), textEdge(part + 1) - textEdge(part));
    const qsizetype end = std::min((part + 1) * bytesInPart, m_bytes.size());
    QString lines;
    for (qsizetype at = part * bytesInPart; at < end; at += bytesInLine) {
        const qsizetype length = std::min(bytesInLine, end - at);
        lines += dumpLine(at, QByteArrayView(m_bytes).sliced(at, length)) + u'\n';
    }
    lines.chop(1);
    return lines;
}

QString ValueParts::wholeText() const
{
    return m_isBinary ? Value(m_bytes).toText() : m_text;
}

QString ValueParts::sizeText() const
{
    const qsizetype size = m_isBinary ? m_bytes.size() : m_text.size();
    const QString unit = m_isBinary ? u"byte"_s : u"character"_s;
    return u"%1 %2%3"_s.arg(QLocale(QLocale::English).toString(size), unit,
                            size == 1 ? QString() : u"s"_s);
}
