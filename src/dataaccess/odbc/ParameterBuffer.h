#pragma once

#include "dataaccess/odbc/OdbcHandle.h"
#include "dataaccess/rows/dataAccessTypes.h"

#include <vector>

/// A command's output parameter with the memory that it is bound to; stays where it is while bound.
class ParameterBuffer
{
public:
    /// @param isUtf8  whether the driver writes outputs as UTF-8 text, however it is asked
    /// @throws RuntimeError 3708 for a type other than texts and whole numbers of up to 32 bits
    ParameterBuffer(const Parameter &parameter, bool isUtf8);

    /// @throws RuntimeError with the driver's text
    void bind(const OdbcHandle &statement, SQLUSMALLINT number);
    /// Forgets what came out before: some drivers leave a null as they found it.
    void clear() { m_indicator = SQL_NULL_DATA; }
    /// The value that came out.
    /// @throws RuntimeError -2147217887 when a text is longer than the parameter's size, 13 or 6
    ///         when the driver wrote no 32-bit number where there should be one
    Value load(const Parameter &parameter) const;

private:
    [[noreturn]] static void raiseTooLong(const Parameter &parameter);

    bool m_isInteger;
    SQLULEN m_size; ///< characters
    SQLSMALLINT m_cType;
    std::vector<char16_t> m_memory;
    SQLLEN m_indicator = SQL_NULL_DATA;
};
