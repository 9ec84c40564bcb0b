#pragma once

#include "platform/RuntimeError.h"

#include <limits>
#include <type_traits>

/// Converts a whole number to a narrower type.
/// @throws RuntimeError 6 (overflow) when it does not fit.
template <typename Narrow>
constexpr Narrow checkedCast(qint64 value)
{
    static_assert(std::is_integral_v<Narrow> && sizeof(Narrow) < sizeof(qint64));
    if (value < std::numeric_limits<Narrow>::min() || value > std::numeric_limits<Narrow>::max())
        throw RuntimeError(ErrorNumber::Overflow);
    return static_cast<Narrow>(value);
}

/// A signed 16-bit whole number whose arithmetic raises RuntimeError 6 instead of wrapping round.
/// Counters and clock differences of this program are of this width.
class Int16
{
public:
    constexpr Int16() = default;
    constexpr Int16(qint64 value)
        : m_value(checkedCast<qint16>(value))
    {
    }

    constexpr qint16 value() const { return m_value; }

    friend constexpr Int16 operator+(Int16 a, Int16 b) { return qint64{a.m_value} + b.m_value; }
    friend constexpr Int16 operator-(Int16 a, Int16 b) { return qint64{a.m_value} - b.m_value; }
    friend constexpr Int16 operator*(Int16 a, Int16 b) { return qint64{a.m_value} * b.m_value; }
    Int16 &operator++() { return *this = *this + Int16(1); }
    friend constexpr bool operator==(Int16 a, Int16 b) = default;

private:
    qint16 m_value = 0;
};
