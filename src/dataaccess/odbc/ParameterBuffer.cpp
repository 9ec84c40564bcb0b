#include "dataaccess/odbc/ParameterBuffer.h"

#include "platform/RuntimeError.h"
#include "platform/numberForms.h"

#include <cstring>

using namespace Qt::StringLiterals;

namespace {

constexpr SQLULEN integerDigits = 10;

bool isIntegerType(DataTypeEnum type)
{
    return type == adSmallInt || type == adInteger;
}

} // namespace

ParameterBuffer::ParameterBuffer(const Parameter &parameter, bool isUtf8)
    : m_isInteger(isIntegerType(parameter.type))
    , m_size(m_isInteger ? integerDigits : static_cast<SQLULEN>(parameter.size))
    , m_cType(isUtf8        ? SQL_C_CHAR
              : m_isInteger ? SQL_C_SLONG
                            : SQL_C_WCHAR)
{
    if (!m_isInteger && !isCharacterType(parameter.type))
        throw RuntimeError(ErrorNumber::BadParameterInfo);
    // One character more than the size, and the zero: so a longer text shows. In UTF-8, up to three
    // bytes where there are two.
    m_memory.resize((m_size + 2) * (isUtf8 ? 2 : 1));
}

void ParameterBuffer::bind(const OdbcHandle &statement, SQLUSMALLINT number)
{
    checkOdbc(SQLBindParameter(statement.get(), number, SQL_PARAM_OUTPUT, m_cType,
                               m_isInteger ? SQL_INTEGER : SQL_WVARCHAR, m_size, 0, m_memory.data(),
                               static_cast<SQLLEN>(m_memory.size() * sizeof(char16_t)),
                               &m_indicator),
              statement);
}

void ParameterBuffer::raiseTooLong(const Parameter &parameter)
{
    throw RuntimeError(
        ErrorNumber::MultipleStepErrors,
        u"The text of parameter \"%1\" is longer than its size of %2 characters."_s.arg(
            parameter.name, QString::number(parameter.size)));
}

Value ParameterBuffer::load(const Parameter &parameter) const
{
    const auto memoryBytes = static_cast<SQLLEN>(m_memory.size() * sizeof(char16_t));
    const bool isUtf8 = m_cType == SQL_C_CHAR;
    // A driver that writes UTF-8 does not tell nulls and empty texts apart.
    if (m_indicator == SQL_NULL_DATA || (isUtf8 && m_indicator == 0))
        return NullValue{};
    if (m_cType == SQL_C_SLONG) {
        std::int32_t number = 0;
        std::memcpy(&number, m_memory.data(), sizeof number);
        return number;
    }
    if (m_indicator < 0 || m_indicator >= memoryBytes)
        raiseTooLong(parameter);
    const auto *bytes = reinterpret_cast<const char *>(m_memory.data());
    const QString text =
        isUtf8 ? textFromUtf8({bytes, m_indicator})
               : QString::fromUtf16(m_memory.data(), m_indicator / SQLLEN{sizeof(char16_t)});
    if (m_isInteger)
        return textToInteger(text);
    if (static_cast<SQLULEN>(text.size()) > m_size)
        raiseTooLong(parameter);
    return text;
}
