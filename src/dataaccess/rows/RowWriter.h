#pragma once

#include "dataaccess/rows/Value.h"
#include "platform/ByteBuffer.h"

#include <QByteArrayView>

/// What a null of the data source becomes in a packed row.
enum class NullForm { Null, EmptyText };

/// Packs the cells of one row, from the first to the last, in the form of packedCells.h. Meant to
/// be reused for row after row: its memory stays.
class RowWriter
{
public:
    void clear() { m_bytes.clear(); }
    const char *data() const { return m_bytes.view().data(); }
    size_t size() const { return static_cast<size_t>(m_bytes.size()); }

    void addEmpty();
    void addNull(NullForm form = NullForm::Null);
    void addBoolean(bool value);
    void addInteger(std::int64_t value);
    void addDouble(double value);
    /// An exact number as the data source wrote it.
    void addDigits(const char *digits, size_t length);
    void addTimestamp(const Timestamp &value);
    /// One byte a character when every character is below U+0100, otherwise UTF-16 as it stands:
    /// lone surrogates and zeros stay.
    void addText(const char16_t *text, size_t units);
    /// The same for text in UTF-8; what is none becomes the sign for that.
    void addUtf8(QByteArrayView text);
    void addBinary(const char *bytes, size_t length);
    void addValue(const Value &value);
    /// Cells that are packed already, up to @p end.
    void addPacked(const char *cells, const char *end);

private:
    /// Room for @p bytes more, until endCell() says where what is used of it ends.
    char *claim(size_t bytes) { return m_bytes.room(static_cast<qsizetype>(bytes)); }
    void endCell(const char *end) { m_bytes.added(end - m_bytes.view().end()); }
    void addTag(quint8 tag) { m_bytes.append(static_cast<char>(tag)); }
    /// Begins a cell of that many Latin-1 characters. @returns where they go
    char *beginLatin1(size_t characters);
    void addUtf16(quint8 tag, const char16_t *text, size_t units);

    ByteBuffer m_bytes;
};
