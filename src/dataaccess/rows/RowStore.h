#pragma once

#include <QtGlobal>

#include <memory>
#include <vector>

class RowWriter;

/// Packed rows, kept in blocks of up to 1 MiB that never move or grow: rows fill a block from its
/// front, their 32-bit offsets from its back. A longer row has a block of its own.
///
/// So a row costs its cells and four bytes, and adding one never copies what is there.
class RowStore
{
public:
    qint64 rowCount() const;
    void append(const RowWriter &row);
    /// The first cell of row @p index, valid as long as the store.
    const char *row(qint64 index) const;
    /// Memory taken, indexes and unused ends of blocks included.
    qint64 bytes() const;

private:
    struct Block
    {
        explicit Block(size_t bytes, qint64 first);
        /// Where row @p row of this block begins.
        size_t offset(size_t row) const;
        size_t freeBytes() const;
        void append(const char *data, size_t size);

        std::unique_ptr<char[]> data;
        size_t capacity;
        size_t used = 0;
        size_t rows = 0;
        qint64 firstRow;
    };
    size_t blockOf(qint64 index) const;
    Block &blockFor(size_t rowBytes);

    std::vector<Block> m_blocks;
};
