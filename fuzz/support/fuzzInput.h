#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QString>

#include <cstddef>
#include <cstdint>

/// A fuzzer's input as bytes that nobody copies.
inline QByteArrayView bytesOf(const std::uint8_t *data, std::size_t size)
{
    return {data, static_cast<qsizetype>(size)};
}

/// The input as text; what is no UTF-8 becomes U+FFFD.
inline QString textOf(const std::uint8_t *data, std::size_t size)
{
    return QString::fromUtf8(bytesOf(data, size));
}

/// The input cut into texts at every line that is a tilde; always @p count of them, the missing
/// ones empty and the last one with all the rest. So that a corpus can be read and written.
QList<QString> textsOf(const std::uint8_t *data, std::size_t size, qsizetype count);
