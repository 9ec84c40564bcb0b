#include "dataaccess/rows/RowStore.h"

#include "dataaccess/rows/RowWriter.h"

#include <algorithm>
#include <cstring>

namespace {

using Slot = quint32;
// The first blocks are small, so that a short result does not take a megabyte.
constexpr size_t smallestBlock = size_t{1} << 14;
constexpr size_t largestBlock = size_t{1} << 20;

} // namespace

RowStore::Block::Block(size_t bytes, qint64 first)
    : data(std::make_unique_for_overwrite<char[]>(bytes))
    , capacity(bytes)
    , firstRow(first)
{
}

size_t RowStore::Block::offset(size_t row) const
{
    Slot slot;
    std::memcpy(&slot, data.get() + capacity - (row + 1) * sizeof slot, sizeof slot);
    return slot;
}

size_t RowStore::Block::freeBytes() const
{
    return capacity - used - rows * sizeof(Slot);
}

void RowStore::Block::append(const char *row, size_t size)
{
    std::memcpy(data.get() + used, row, size);
    const auto slot = static_cast<Slot>(used);
    ++rows;
    std::memcpy(data.get() + capacity - rows * sizeof slot, &slot, sizeof slot);
    used += size;
}

qint64 RowStore::rowCount() const
{
    return m_blocks.empty() ? 0
                            : m_blocks.back().firstRow + static_cast<qint64>(m_blocks.back().rows);
}

RowStore::Block &RowStore::blockFor(size_t rowBytes)
{
    const size_t needed = rowBytes + sizeof(Slot);
    if (m_blocks.empty() || m_blocks.back().freeBytes() < needed) {
        const size_t usual =
            std::min(largestBlock, smallestBlock << std::min(m_blocks.size(), size_t{6}));
        m_blocks.emplace_back(std::max(usual, needed), rowCount());
    }
    return m_blocks.back();
}

void RowStore::append(const RowWriter &row)
{
    blockFor(row.size()).append(row.data(), row.size());
}

size_t RowStore::blockOf(qint64 index) const
{
    const auto after =
        std::upper_bound(m_blocks.begin(), m_blocks.end(), index,
                         [](qint64 row, const Block &block) { return row < block.firstRow; });
    return static_cast<size_t>(after - m_blocks.begin()) - 1;
}

const char *RowStore::row(qint64 index) const
{
    const Block &block = m_blocks[blockOf(index)];
    return block.data.get() + block.offset(static_cast<size_t>(index - block.firstRow));
}

qint64 RowStore::bytes() const
{
    size_t bytes = m_blocks.capacity() * sizeof(Block);
    for (const Block &block : m_blocks)
        bytes += block.capacity;
    return static_cast<qint64>(bytes);
}
