#include "dataaccess/odbc/OdbcHandle.h"

#include "dataaccess/odbc/diagnostics.h"

static_assert(sizeof(SQLWCHAR) == sizeof(char16_t));

OdbcHandle::OdbcHandle(SQLSMALLINT type, const OdbcHandle &parent)
    : m_type(type)
{
    checkOdbc(SQLAllocHandle(type, parent.get(), &m_handle), parent);
}

void OdbcHandle::reset()
{
    if (m_handle != nullptr)
        SQLFreeHandle(m_type, m_handle);
    m_handle = nullptr;
}

SQLRETURN checkOdbc(SQLRETURN code, const OdbcHandle &handle)
{
    if (code == SQL_SUCCESS || code == SQL_SUCCESS_WITH_INFO || code == SQL_NO_DATA)
        return code;
    throw odbcError(handle);
}

SQLWCHAR *odbcText(const QString &text)
{
    return reinterpret_cast<SQLWCHAR *>(const_cast<ushort *>(text.utf16()));
}
