#include "dataaccess/odbc/ParameterBuffer.h"

#include "platform/RuntimeError.h"

#include <algorithm>
#include <cstring>

using namespace Qt::StringLiterals;

namespace {

struct OdbcTypes
{
    SQLSMALLINT cType;
    SQLSMALLINT sqlType;
    SQLULEN size; ///< 0: the parameter's own
};

OdbcTypes odbcTypes(DataTypeEnum type)
{
    switch (type) {
    case adSmallInt:
    case adInteger:
        return {SQL_C_SLONG, SQL_INTEGER, 10};
    case adBigInt:
        return {SQL_C_SBIGINT, SQL_BIGINT, 19};
    case adSingle:
    case adDouble:
        return {SQL_C_DOUBLE, SQL_DOUBLE, 15};
    case adChar:
    case adVarChar:
    case adLongVarChar:
    case adWChar:
    case adVarWChar:
    case adLongVarWChar:
        return {SQL_C_WCHAR, SQL_WVARCHAR, 0};
    default:
        throw RuntimeError(ErrorNumber::BadParameterInfo);
    }
}

} // namespace

ParameterBuffer::ParameterBuffer(const Parameter &parameter, bool isUtf8)
{
    const OdbcTypes types = odbcTypes(parameter.type);
    m_cType = types.cType;
    m_sqlType = types.sqlType;
    m_size = types.size > 0 ? types.size : static_cast<SQLULEN>(parameter.size);
    // One character more than the size, and the zero: so a longer text shows.
    m_memory.resize(m_size + 2);
    if (isUtf8) {
        m_cType = SQL_C_CHAR;
        m_memory.resize(2 * m_memory.size()); // up to three bytes where there were two
    }
}

void ParameterBuffer::bind(const OdbcHandle &statement, SQLUSMALLINT number)
{
    checkOdbc(SQLBindParameter(statement.get(), number, SQL_PARAM_OUTPUT, m_cType, m_sqlType,
                               m_size, 0, m_memory.data(),
                               static_cast<SQLLEN>(m_memory.size() * sizeof(char16_t)),
                               &m_indicator),
              statement);
}

void ParameterBuffer::raiseTooLong(const Parameter &parameter)
{
    throw RuntimeError(ErrorNumber::MultipleStepErrors,
                       u"The text of parameter \"%1\" is longer than its size of %2 characters."_s
                           .arg(parameter.name)
                           .arg(parameter.size));
}

Value ParameterBuffer::load(const Parameter &parameter) const
{
    if (m_indicator == SQL_NULL_DATA)
        return NullValue{};
    const auto get = [this](auto number) {
        std::memcpy(&number, m_memory.data(), sizeof number);
        return number;
    };
    if (m_cType == SQL_C_SLONG)
        return get(SQLINTEGER{});
    if (m_cType == SQL_C_SBIGINT)
        return get(std::int64_t{});
    if (m_cType == SQL_C_DOUBLE)
        return get(double{});
    if (m_cType == SQL_C_CHAR)
        return loadUtf8(parameter);
    const auto units = m_indicator / SQLLEN{sizeof(char16_t)};
    if (m_indicator < 0 || static_cast<SQLULEN>(units) > m_size)
        raiseTooLong(parameter);
    return QString::fromUtf16(m_memory.data(), units);
}

Value ParameterBuffer::loadUtf8(const Parameter &parameter) const
{
    if (m_indicator == 0) // the driver does not tell nulls and empty texts apart
        return NullValue{};
    const auto memorySize = static_cast<SQLLEN>(m_memory.size() * sizeof(char16_t));
    if (m_indicator < 0 || m_indicator >= memorySize)
        raiseTooLong(parameter);
    const QString text =
        QString::fromUtf8(reinterpret_cast<const char *>(m_memory.data()), m_indicator);
    if (m_sqlType == SQL_INTEGER || m_sqlType == SQL_BIGINT)
        return std::int64_t{text.toLongLong()};
    if (m_sqlType == SQL_DOUBLE)
        return text.toDouble();
    if (static_cast<SQLULEN>(text.size()) > m_size)
        raiseTooLong(parameter);
    return text;
}
