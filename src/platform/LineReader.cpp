#include "platform/LineReader.h"

namespace {

constexpr qsizetype blockSize = 64 * 1024;

} // namespace

LineReader::LineReader(const QString &path)
    : m_file(path, FileHandle::Mode::Read)
    , m_block(blockSize, Qt::Uninitialized)
{
}

bool LineReader::readLine(QByteArray &line)
{
    line.resize(0);
    bool any = false;
    for (bool complete = false; !complete && (m_position < m_filled || fill());) {
        any = true;
        const QByteArrayView rest =
            QByteArrayView(m_block).sliced(m_position, m_filled - m_position);
        const qsizetype lineFeed = rest.indexOf('\n');
        complete = lineFeed >= 0;
        line.append(complete ? rest.first(lineFeed) : rest);
        m_position = complete ? m_position + lineFeed + 1 : m_filled;
    }
    if (line.endsWith('\r'))
        line.chop(1);
    return any;
}

bool LineReader::fill()
{
    m_position = 0;
    m_filled = static_cast<qsizetype>(m_file.read(m_block.data(), blockSize));
    return m_filled > 0;
}
