#include "platform/TextFileWriter.h"

#include "platform/errorTraps.h"

#include <algorithm>
#include <utility>

namespace {

constexpr qsizetype bufferSize = 256 * 1024;

} // namespace

TextFileWriter::TextFileWriter(const QString &path, Mode mode)
    : m_file(path, mode == Mode::Replace ? FileHandle::Mode::Replace : FileHandle::Mode::Append)
    , m_buffer(bufferSize, Qt::Uninitialized)
{
}

TextFileWriter::~TextFileWriter()
{
    if (m_file.isOpen())
        ignoreErrors([this] { close(); });
}

void TextFileWriter::write(QByteArrayView bytes)
{
    if (bytes.size() > bufferSize - m_used)
        writeBuffer();
    if (bytes.size() > bufferSize) {
        m_file.write(bytes.data(), static_cast<size_t>(bytes.size()));
        return;
    }
    std::copy(bytes.begin(), bytes.end(), m_buffer.data() + m_used);
    m_used += bytes.size();
}

void TextFileWriter::close()
{
    writeBuffer();
    m_file.close();
}

void TextFileWriter::writeBuffer()
{
    // What could not be written once is not tried again.
    const qsizetype size = std::exchange(m_used, 0);
    m_file.write(m_buffer.constData(), static_cast<size_t>(size));
}
