#include "dataaccess/odbc/ParameterBuffer.h"

#include "platform/RuntimeError.h"

#include <algorithm>
#include <cstring>

using namespace Qt::StringLiterals;

namespace {

SQLSMALLINT odbcDirection(ParameterDirectionEnum direction)
{
    switch (direction) {
    case adParamInput:
        return SQL_PARAM_INPUT;
    case adParamInputOutput:
        return SQL_PARAM_INPUT_OUTPUT;
    case adParamOutput:
    case adParamReturnValue:
        break;
    }
    return SQL_PARAM_OUTPUT;
}

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

double toDouble(const Value &value)
{
    const auto *number = std::get_if<double>(&value.variant());
    return number != nullptr ? *number : value.toInteger();
}

std::int64_t toInteger64(const Value &value)
{
    const auto *number = std::get_if<std::int64_t>(&value.variant());
    return number != nullptr ? *number : value.toInteger();
}

} // namespace

ParameterBuffer::ParameterBuffer(const Parameter &parameter, bool outputsAreUtf8)
    : m_direction(odbcDirection(parameter.direction))
{
    const OdbcTypes types = odbcTypes(parameter.type);
    m_cType = types.cType;
    m_sqlType = types.sqlType;
    m_size = types.size;
    if (m_size == 0) {
        const qsizetype ownLength = parameter.value.toText().size();
        m_size = static_cast<SQLULEN>(std::max<qsizetype>({1, parameter.size, ownLength}));
    }
    // One character more than the size, and the zero: so a longer text shows.
    m_memory.resize(std::max<size_t>(m_size + 2, 8));
    if (outputsAreUtf8 && m_direction == SQL_PARAM_OUTPUT) {
        m_cType = SQL_C_CHAR;
        m_memory.resize(2 * m_memory.size()); // up to three bytes where there were two
    }
}

void ParameterBuffer::bind(const OdbcHandle &statement, SQLUSMALLINT number)
{
    checkOdbc(SQLBindParameter(statement.get(), number, m_direction, m_cType, m_sqlType, m_size, 0,
                               m_memory.data(),
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

void ParameterBuffer::store(const Parameter &parameter)
{
    const bool goesIn = m_direction != SQL_PARAM_OUTPUT;
    if (!goesIn || parameter.value.isNull() || parameter.value.isEmpty()) {
        m_indicator = SQL_NULL_DATA;
        return;
    }
    const auto put = [this](const auto &number) {
        std::memcpy(m_memory.data(), &number, sizeof number);
        m_indicator = sizeof number;
    };
    if (m_cType == SQL_C_SLONG) {
        put(SQLINTEGER{parameter.value.toInteger()});
    } else if (m_cType == SQL_C_SBIGINT) {
        put(toInteger64(parameter.value));
    } else if (m_cType == SQL_C_DOUBLE) {
        put(toDouble(parameter.value));
    } else {
        const QString text = parameter.value.toText();
        if (static_cast<SQLULEN>(text.size()) > m_size)
            raiseTooLong(parameter);
        std::memcpy(m_memory.data(), text.utf16(), static_cast<size_t>(text.size() + 1) * 2);
        m_indicator = text.size() * SQLLEN{sizeof(char16_t)};
    }
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
