#include "platform/ByteBuffer.h"

#include <algorithm>
#include <utility>

void ByteBuffer::grow(qsizetype bytes)
{
    constexpr qsizetype smallest = 256;
    const qsizetype capacity = std::max({smallest, m_capacity * 2, m_size + bytes});
    auto data = std::make_unique_for_overwrite<char[]>(static_cast<size_t>(capacity));
    std::copy_n(m_data.get(), m_size, data.get());
    m_data = std::move(data);
    m_capacity = capacity;
}

void ByteBuffer::takeLeadingBlanks(qsizetype start)
{
    char *const begin = m_data.get() + start;
    char *const end = m_data.get() + m_size;
    const char *const text = std::find_if(begin, end, [](char c) { return c != ' '; });
    std::copy(text, static_cast<const char *>(end), begin);
    m_size -= text - begin;
}
