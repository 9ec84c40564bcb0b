#pragma once

#include <QByteArrayView>

#include <cstring>
#include <memory>

/// Bytes that are put together in many small pieces, over and over: appending is a copy and little
/// else, and clear() keeps the memory.
class ByteBuffer
{
public:
    qsizetype size() const { return m_size; }
    QByteArrayView view() const { return {m_data.get(), m_size}; }
    void clear() { m_size = 0; }

    void append(char byte)
    {
        *room(1) = byte;
        ++m_size;
    }
    void append(QByteArrayView bytes)
    {
        if (bytes.isEmpty())
            return;
        std::memcpy(room(bytes.size()), bytes.data(), static_cast<size_t>(bytes.size()));
        m_size += bytes.size();
    }
    /// Takes the last @p count bytes away.
    void chop(qsizetype count) { m_size -= count; }

    /// Room behind the end for up to @p bytes, until the next of these calls; added() tells how
    /// many of them were used.
    char *room(qsizetype bytes)
    {
        if (m_capacity - m_size < bytes)
            grow(bytes);
        return m_data.get() + m_size;
    }
    void added(qsizetype bytes) { m_size += bytes; }

    /// Takes the blanks off both ends of what stands from @p start on.
    void trimBlanksFrom(qsizetype start)
    {
        while (m_size > start && m_data[m_size - 1] == ' ')
            --m_size;
        if (m_size > start && m_data[start] == ' ')
            takeLeadingBlanks(start);
    }

private:
    void grow(qsizetype bytes);
    void takeLeadingBlanks(qsizetype start);

    std::unique_ptr<char[]> m_data;
    qsizetype m_size = 0;
    qsizetype m_capacity = 0;
};
