#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QString>

#include <cstddef>
#include <cstdint>

/// What every fuzzer has: its input as text, and the properties that it requires.

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

/// Stops the fuzzer, which then keeps its input, unless @p holds. @p property says what has to be.
void require(bool holds, const char *property);

/// The same for two texts that have to be equal; both are shown when they are not.
void requireEqual(const QString &found, const QString &expected, const char *property);
