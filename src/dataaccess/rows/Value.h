#pragma once

#include "platform/textForms.h"

#include <QByteArray>
#include <QString>

#include <cstdint>
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

/// A point in time as a data source holds it: no time zone, nanoseconds kept.
/// 24:00 does not occur.
struct Timestamp
{
    qint16 year =
        0; ///< negative before the common era; 0 with month 0 and day 0: a time of day alone
    quint8 month = 0;
    quint8 day = 0;
    quint8 hour = 0;
    quint8 minute = 0;
    quint8 second = 0;
    quint32 nanosecond = 0; ///< 0 to 999,999,999

    ClockTime clockTime() const
    {
        return {year, month, day, hour, minute, second, static_cast<int>(nanosecond)};
    }
    friend bool operator==(const Timestamp &, const Timestamp &) = default;
};

/// One value of a recordset's field or a command's parameter.
class Value
{
public:
    using Variant = std::variant<EmptyValue, NullValue, bool, std::int64_t, double, ExactNumber,
                                 Timestamp, QString, QByteArray>;

    Value() = default;
    Value(EmptyValue) {}
    Value(NullValue null)
        : m_value(null)
    {
    }
    Value(bool value)
        : m_value(value)
    {
    }
    Value(int value)
        : m_value(std::int64_t{value})
    {
    }
    Value(std::int64_t value)
        : m_value(value)
    {
    }
    Value(double value)
        : m_value(value)
    {
    }
    Value(ExactNumber value)
        : m_value(std::move(value))
    {
    }
    Value(Timestamp value)
        : m_value(value)
    {
    }
    Value(QString value)
        : m_value(std::move(value))
    {
    }
    Value(QByteArray value)
        : m_value(std::move(value))
    {
    }
    Value(const void *) = delete; // no pointer is to become a truth value

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

/// The text form of a point in time: that of dateTimeForm(), or of timeOfDayForm() where there is
/// no date.
ShortText timestampForm(const Timestamp &timestamp);

/// A data source's text in UTF-8, whole: a byte order mark or a zero in it is a character of it.
QString textFromUtf8(QByteArrayView text);
