#pragma once

#include <QString>

#include <sql.h>
#include <sqlext.h>

#include <utility>

/// An ODBC handle, freed with this object. A driver's failures to free are of no use to anybody and
/// are ignored.
class OdbcHandle
{
public:
    OdbcHandle() = default;
    /// Allocates a handle of @p type (SQL_HANDLE_…) under @p parent.
    /// @throws RuntimeError with the diagnostics of @p parent
    OdbcHandle(SQLSMALLINT type, const OdbcHandle &parent);
    OdbcHandle(OdbcHandle &&other) noexcept
        : m_type(other.m_type)
        , m_handle(std::exchange(other.m_handle, nullptr))
    {
    }
    OdbcHandle &operator=(OdbcHandle &&other) noexcept
    {
        std::swap(m_type, other.m_type);
        std::swap(m_handle, other.m_handle);
        return *this;
    }
    ~OdbcHandle() { reset(); }

    void reset();
    SQLSMALLINT type() const { return m_type; }
    SQLHANDLE get() const { return m_handle; }
    explicit operator bool() const { return m_handle != nullptr; }

private:
    SQLSMALLINT m_type = SQL_HANDLE_ENV;
    SQLHANDLE m_handle = nullptr;
};

/// Every call of the driver passes here: @p code is what it returned, @p handle what it was made
/// on.
/// @returns @p code when it is SQL_SUCCESS, SQL_SUCCESS_WITH_INFO or SQL_NO_DATA
/// @throws RuntimeError otherwise, with all diagnostic records
SQLRETURN checkOdbc(SQLRETURN code, const OdbcHandle &handle);

/// The text as ODBC's wide functions want it. They do not write to it.
SQLWCHAR *odbcText(const QString &text);
