#pragma once

#include "dataaccess/rows/Value.h"

/// A value's text for reading it: whole where it is short, otherwise in parts that each cost the
/// same to show, however long the value is. Bytes are shown in lines of sixteen, with their offset,
/// in hexadecimal and as characters.
class ValueParts
{
public:
    /// Units of a text in a part at most.
    static constexpr qsizetype partSize = 1 << 16;

    ValueParts() = default;
    explicit ValueParts(const Value &value);

    /// At least 1.
    qsizetype count() const;
    /// @param part  from 0 to count() - 1. A part neither begins nor ends within a character or
    ///              a line end.
    QString part(qsizetype part) const;
    /// The value's ordinary text form, whole.
    QString wholeText() const;
    /// "70,000 characters", "1 byte" and the like.
    QString sizeText() const;

private:
    qsizetype textEdge(qsizetype part) const;

    bool m_isBinary = false;
    QString m_text;
    QByteArray m_bytes;
};
