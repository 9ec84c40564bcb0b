#pragma once

#include "dataaccess/odbc/OdbcHandle.h"
#include "dataaccess/rows/dataAccessTypes.h"

#include <vector>

/// The C type in which a column's values are fetched, and so what is made of them.
enum class ColumnForm {
    Boolean,
    Integer,
    Single,
    Double,
    Digits,   ///< exact numbers, as the digits that the driver writes
    Anything, ///< as text, where a column may hold numbers of any kind, and texts
    Timestamp,
    TimeOfDay, ///< as text: some servers' times of day go beyond 24 hours
    Binary,
    Text,
    Utf8Text,
};

/// A column of a result as the driver describes it.
struct OdbcColumn
{
    FieldInfo field;
    ColumnForm form = ColumnForm::Text;
    /// Bytes that one value takes in the driver's form if the description is right; 0 for columns
    /// without a useful size.
    size_t expectedBytes = 0;
    /// Drivers that describe columns of tables well still guess for expressions.
    bool isTableColumn = false;

    bool hasVariableSize() const
    {
        return form >= ColumnForm::Digits && form != ColumnForm::Timestamp;
    }
    SQLSMALLINT cType() const;
    /// Bytes of the zero that ends a value.
    size_t terminatorBytes() const;
};

/// The columns of an executed statement's present result.
/// @throws RuntimeError with the driver's text
std::vector<OdbcColumn> describeColumns(const OdbcHandle &statement,
                                        const OdbcAbilities &abilities);
