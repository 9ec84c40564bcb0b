#include "platform/files.h"

#include <cerrno>

namespace {

constexpr qsizetype blockSize = qsizetype{64} * 1024;
constexpr qint64 mostOfAll = qint64{1} << 30;

} // namespace

FileReader::FileReader(const QString &path)
    : m_file(path)
    , m_block(blockSize, Qt::Uninitialized)
{
    requireOrdinaryFile(path);
    errno = 0;
    if (!m_file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        throw fileError(m_file, FileUse::Read);
}

QByteArray FileReader::readAll()
{
    QByteArray all;
    const auto checkSize = [](qint64 size) {
        if (size > mostOfAll)
            throw RuntimeError(ErrorNumber::OutOfMemory);
    };
    checkSize(m_file.size());
    all.reserve(m_file.size());
    while (fill()) {
        checkSize(all.size() + m_filled);
        all.append(m_block.constData(), m_filled);
    }
    return all;
}

std::optional<QByteArrayView> FileReader::nextLine()
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

QByteArrayView FileReader::takePiece(bool &endsLine)
{
    const QByteArrayView rest = QByteArrayView(m_block).sliced(m_position, m_filled - m_position);
    const qsizetype lineFeed = rest.indexOf('\n');
    endsLine = lineFeed >= 0;
    m_position = endsLine ? m_position + lineFeed + 1 : m_filled;
    return endsLine ? rest.first(lineFeed) : rest;
}

bool FileReader::fill()
{
    errno = 0;
    const qint64 count = m_file.read(m_block.data(), blockSize);
    if (count < 0)
        throw fileError(m_file, FileUse::Read);
    m_position = 0;
    m_filled = count;
    return count > 0;
}
