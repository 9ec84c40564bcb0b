#include "platform/LineReader.h"

namespace {

constexpr qsizetype blockSize = 64 * 1024;

} // namespace

LineReader::LineReader(const QString &path)
    : m_file(path, FileHandle::Mode::Read)
    , m_block(blockSize, Qt::Uninitialized)
{
}

std::optional<QByteArrayView> LineReader::nextLine()
{
    if (m_position == m_filled && !fill())
        return std::nullopt;
    bool isComplete = false;
    QByteArrayView line = takePiece(isComplete);
    if (!isComplete) {
        m_line.clear();
        m_line.append(line);
        while (!isComplete && fill())
            m_line.append(takePiece(isComplete));
        line = m_line.view();
    }
    return line.endsWith('\r') ? line.chopped(1) : line;
}

QByteArrayView LineReader::takePiece(bool &endsLine)
{
    const QByteArrayView rest = QByteArrayView(m_block).sliced(m_position, m_filled - m_position);
    const qsizetype lineFeed = rest.indexOf('\n');
    endsLine = lineFeed >= 0;
    m_position = endsLine ? m_position + lineFeed + 1 : m_filled;
    return endsLine ? rest.first(lineFeed) : rest;
}

bool LineReader::fill()
{
    m_position = 0;
    m_filled = static_cast<qsizetype>(m_file.read(m_block.data(), blockSize));
    return m_filled > 0;
}
