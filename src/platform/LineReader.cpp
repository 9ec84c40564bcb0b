#include "platform/LineReader.h"

#include <algorithm>

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
        const char *const begin = m_block.constData() + m_position;
        const char *const end = m_block.constData() + m_filled;
        const char *const lineFeed = std::find(begin, end, '\n');
        line.append(begin, lineFeed - begin);
        complete = lineFeed != end;
        m_position += lineFeed - begin + (complete ? 1 : 0);
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
