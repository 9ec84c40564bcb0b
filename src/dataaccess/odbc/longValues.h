#pragma once

#include "dataaccess/odbc/OdbcColumn.h"

#include <QByteArray>

#include <optional>

/// Reads a value of the current row whole, piece by piece where it has to be.
/// @param expectedBytes  the length if it is known, otherwise a negative number
/// @returns the value's bytes, without a zero at its end; nothing for null
/// @throws RuntimeError with the driver's text, or when the driver stops giving more
std::optional<QByteArray> readWholeValue(const OdbcHandle &statement, SQLUSMALLINT number,
                                         const OdbcColumn &column, SQLLEN expectedBytes);
