#pragma once

#include "platform/textForms.h"

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <type_traits>
#include <utility>
#include <variant>

/// A field never set.
struct EmptyValue
{
    friend bool operator==(EmptyValue, EmptyValue) = default;
};

/// A database null.
struct NullValue
{
    friend bool operator==(NullValue, NullValue) = default;
};

/// An exact number as its decimal digits, so that 38 of them survive.
struct ExactNumber
{
    QString digits;
    friend bool operator==(const ExactNumber &, const ExactNumber &) = default;
};

/// Whether a variant has an alternative of just that type.
template <typename Type, typename Variant>
inline constexpr bool isAlternative = false;
template <typename Type, typename... Alternatives>
inline constexpr bool isAlternative<Type, std::variant<Alternatives...>> =
    (std::is_same_v<Type, Alternatives> || ...);

/// One value of a recordset's field or a command's parameter.
class Value
{
public:
    using Variant = std::variant<EmptyValue, NullValue, bool, std::int64_t, double, ExactNumber,
                                 Timestamp, QString, QByteArray>;

    Value() = default;
    /// A value of exactly one of those types: no pointer is to become a truth value.
    template <typename Type>
    requires isAlternative<Type, Variant> Value(Type value)
        : m_value(std::move(value))
    {
    }
    Value(int value)
        : m_value(std::int64_t{value})
    {
    }

    bool isEmpty() const { return std::holds_alternative<EmptyValue>(m_value); }
    bool isNull() const { return std::holds_alternative<NullValue>(m_value); }
    bool isNumber() const;
    const Variant &variant() const { return m_value; }

    /// The ordinary text form: dates and numbers as textForms.h writes them, binary as upper-case
    /// hexadecimal digits, a truth value as "True" or "False"; empty and null give "".
    QString toText() const;

    /// A whole number; empty counts as 0.
    /// @throws RuntimeError 94 for null, 13 for text that is no number, 6 out of 32 bits
    qint32 toInteger() const;

    friend bool operator==(const Value &, const Value &) = default;

private:
    Variant m_value;
};

/// A data source's text in UTF-8, whole: a byte order mark or a zero in it is a character of it.
QString textFromUtf8(QByteArrayView text);
