#include "dataaccess/odbc/OdbcColumn.h"

#include <algorithm>
#include <iterator>
#include <limits>

namespace {

/// Sizes above this, in characters or bytes, are those of long types, which say nothing about the
/// values.
constexpr SQLULEN largestUsefulSize = 32767;
/// Digits that an exact number may take more than its precision says: sign, point, exponent.
constexpr size_t digitsSlack = 16;
constexpr size_t usualPrecision = 38;
constexpr size_t timeOfDayBytes = 40;
constexpr size_t mostUtf8Bytes = 4; ///< of a character
constexpr SQLSMALLINT usualNameRoom = 256;
constexpr SQLSMALLINT longestNameRoom = std::numeric_limits<SQLSMALLINT>::max();

struct Description
{
    QString name;
    SQLSMALLINT sqlType = SQL_UNKNOWN_TYPE;
    SQLULEN size = 0;
};

Description describe(const OdbcHandle &statement, SQLUSMALLINT number)
{
    Description column;
    for (SQLSMALLINT room : {usualNameRoom, longestNameRoom}) {
        QString name(room, QChar::Null);
        SQLSMALLINT length = 0;
        SQLSMALLINT decimals = 0;
        SQLSMALLINT nullable = 0;
        checkOdbc(SQLDescribeColW(statement.get(), number,
                                  reinterpret_cast<SQLWCHAR *>(name.data()), room, &length,
                                  &column.sqlType, &column.size, &decimals, &nullable),
                  statement);
        column.name = textInBuffer(name);
        if (length < room)
            break;
    }
    return column;
}

SQLLEN numericAttribute(const OdbcHandle &statement, SQLUSMALLINT number, SQLUSMALLINT attribute)
{
    SQLLEN value = 0;
    SQLColAttribute(statement.get(), number, attribute, nullptr, 0, nullptr, &value);
    return value;
}

bool hasBaseColumn(const OdbcHandle &statement, SQLUSMALLINT number)
{
    char16_t table[4] = {};
    SQLSMALLINT length = 0;
    const SQLRETURN code = SQLColAttributeW(statement.get(), number, SQL_DESC_BASE_TABLE_NAME,
                                            table, sizeof table, &length, nullptr);
    return SQL_SUCCEEDED(code) && length > 0;
}

struct TypeMapping
{
    SQLSMALLINT sqlType;
    DataTypeEnum type;
    ColumnForm form;
};

constexpr TypeMapping typeMappings[] = {
    {SQL_BIT, adBoolean, ColumnForm::Boolean},
    {SQL_TINYINT, adSmallInt, ColumnForm::Integer},
    {SQL_SMALLINT, adSmallInt, ColumnForm::Integer},
    {SQL_INTEGER, adInteger, ColumnForm::Integer},
    {SQL_BIGINT, adBigInt, ColumnForm::Integer},
    {SQL_REAL, adSingle, ColumnForm::Single},
    {SQL_FLOAT, adDouble, ColumnForm::Double},
    {SQL_DOUBLE, adDouble, ColumnForm::Double},
    {SQL_NUMERIC, adNumeric, ColumnForm::Digits},
    {SQL_DECIMAL, adNumeric, ColumnForm::Digits},
    {SQL_TYPE_DATE, adDBDate, ColumnForm::Timestamp},
    {SQL_TYPE_TIMESTAMP, adDBTimeStamp, ColumnForm::Timestamp},
    {SQL_TYPE_TIME, adDBTime, ColumnForm::TimeOfDay},
    {SQL_BINARY, adBinary, ColumnForm::Binary},
    {SQL_VARBINARY, adVarBinary, ColumnForm::Binary},
    {SQL_LONGVARBINARY, adLongVarBinary, ColumnForm::Binary},
    {SQL_CHAR, adChar, ColumnForm::Text},
    {SQL_VARCHAR, adVarChar, ColumnForm::Text},
    {SQL_LONGVARCHAR, adLongVarChar, ColumnForm::Text},
    {SQL_WCHAR, adWChar, ColumnForm::Text},
    {SQL_WVARCHAR, adVarWChar, ColumnForm::Text},
    {SQL_WLONGVARCHAR, adLongVarWChar, ColumnForm::Text},
    {SQL_GUID, adGUID, ColumnForm::Text},
};

/// Whatever is not listed (intervals, a server's own types) has a text form.
TypeMapping mappingOf(SQLSMALLINT sqlType)
{
    const auto *found =
        std::find_if(std::begin(typeMappings), std::end(typeMappings),
                     [sqlType](const TypeMapping &m) { return m.sqlType == sqlType; });
    return found == std::end(typeMappings) ? TypeMapping{sqlType, adVarWChar, ColumnForm::Text}
                                           : *found;
}

size_t expectedBytes(ColumnForm form, SQLULEN size)
{
    const bool isUseful = size > 0 && size <= largestUsefulSize;
    switch (form) {
    case ColumnForm::Boolean:
        return sizeof(SQLCHAR);
    case ColumnForm::Integer:
        return sizeof(SQLBIGINT);
    case ColumnForm::Single:
    case ColumnForm::Double:
        return sizeof(SQLDOUBLE);
    case ColumnForm::Timestamp:
        return sizeof(SQL_TIMESTAMP_STRUCT);
    case ColumnForm::TimeOfDay:
        return timeOfDayBytes;
    case ColumnForm::Anything:
        return usualPrecision + digitsSlack;
    case ColumnForm::Digits:
        return std::max(isUseful ? static_cast<size_t>(size) : 0, usualPrecision) + digitsSlack;
    case ColumnForm::Binary:
        return isUseful ? size : 0;
    case ColumnForm::Text:
        return isUseful ? size * sizeof(SQLWCHAR) : 0;
    case ColumnForm::Utf8Text:
        return isUseful ? size * mostUtf8Bytes : 0;
    }
    return 0;
}

} // namespace

SQLSMALLINT OdbcColumn::cType() const
{
    switch (form) {
    case ColumnForm::Boolean:
        return SQL_C_BIT;
    case ColumnForm::Integer:
        return SQL_C_SBIGINT;
    case ColumnForm::Single: // not as singles: of a block, some drivers give the first one only
    case ColumnForm::Double:
        return SQL_C_DOUBLE;
    case ColumnForm::Timestamp:
        return SQL_C_TYPE_TIMESTAMP;
    case ColumnForm::Binary:
        return SQL_C_BINARY;
    case ColumnForm::Digits:
    case ColumnForm::Anything:
    case ColumnForm::TimeOfDay:
    case ColumnForm::Utf8Text:
        return SQL_C_CHAR;
    case ColumnForm::Text:
        break;
    }
    return SQL_C_WCHAR;
}

size_t OdbcColumn::terminatorBytes() const
{
    switch (form) {
    case ColumnForm::Text:
        return sizeof(SQLWCHAR);
    case ColumnForm::Digits:
    case ColumnForm::Anything:
    case ColumnForm::TimeOfDay:
    case ColumnForm::Utf8Text:
        return sizeof(SQLCHAR);
    default:
        return 0;
    }
}

std::vector<OdbcColumn> describeColumns(const OdbcHandle &statement, const OdbcAbilities &abilities)
{
    SQLSMALLINT count = 0;
    checkOdbc(SQLNumResultCols(statement.get(), &count), statement);
    std::vector<OdbcColumn> columns;
    columns.reserve(static_cast<size_t>(count));
    for (SQLUSMALLINT number = 1; number <= static_cast<SQLUSMALLINT>(count); ++number) {
        const Description described = describe(statement, number);
        const TypeMapping mapping = mappingOf(described.sqlType);
        OdbcColumn column;
        column.field = {described.name, mapping.type, 0};
        column.form = mapping.form;
        // The upper half of unsigned 64-bit numbers fits no signed ones.
        if (described.sqlType == SQL_BIGINT &&
            numericAttribute(statement, number, SQL_DESC_UNSIGNED) == SQL_TRUE)
            column.form = ColumnForm::Digits;
        if (abilities.isSqlite && column.form != ColumnForm::Text &&
            column.form != ColumnForm::Binary)
            column.form = ColumnForm::Anything;
        if (abilities.givesUtf8 && column.form == ColumnForm::Text)
            column.form = ColumnForm::Utf8Text;
        column.expectedBytes = expectedBytes(column.form, described.size);
        column.isTableColumn = hasBaseColumn(statement, number);
        columns.push_back(std::move(column));
    }
    return columns;
}
