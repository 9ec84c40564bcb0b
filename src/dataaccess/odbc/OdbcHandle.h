#pragma once

#include "dataaccess/odbc/DriverThread.h"
#include "dataaccess/odbc/odbcHeaders.h"
#include "platform/RuntimeError.h"

#include <QString>

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
        , m_takesUtf8(other.m_takesUtf8)
        , m_hasOneResult(other.m_hasOneResult)
        , m_handle(std::exchange(other.m_handle, nullptr))
    {
    }
    OdbcHandle &operator=(OdbcHandle &&other) noexcept
    {
        std::swap(m_type, other.m_type);
        std::swap(m_takesUtf8, other.m_takesUtf8);
        std::swap(m_hasOneResult, other.m_hasOneResult);
        std::swap(m_handle, other.m_handle);
        return *this;
    }
    ~OdbcHandle() { reset(); }

    void reset();
    SQLSMALLINT type() const { return m_type; }
    SQLHANDLE get() const { return m_handle; }

    /// Whether the driver has no wide functions and takes its texts in UTF-8: the driver manager
    /// would lose characters beyond the basic plane. Handles below this one inherit it.
    bool takesUtf8() const { return m_takesUtf8; }
    void setTakesUtf8(bool takes) { m_takesUtf8 = takes; }

    /// Of a statement: that it must not be asked for more results.
    bool hasOneResult() const { return m_hasOneResult; }
    void setHasOneResult(bool hasOne) { m_hasOneResult = hasOne; }

    explicit operator bool() const { return m_handle != nullptr; }

private:
    SQLSMALLINT m_type = SQL_HANDLE_ENV;
    bool m_takesUtf8 = false;
    bool m_hasOneResult = false;
    SQLHANDLE m_handle = nullptr;
};

/// Every call of the driver whose failure matters passes here: @p code is what it returned,
/// @p handle what it was made on.
/// @returns @p code when it is SQL_SUCCESS, SQL_SUCCESS_WITH_INFO or SQL_NO_DATA
/// @throws RuntimeError otherwise, with all diagnostic records
SQLRETURN checkOdbc(SQLRETURN code, const OdbcHandle &handle);

/// Ends a call of @p handle, a statement, that was cancelled itself.
[[noreturn]] void raiseCancelled(SQLRETURN code, const OdbcHandle &handle);
/// Makes a @p call of the driver that may take long and that the user may cancel; on @p handle, as
/// checkOdbc().
template <typename Call>
SQLRETURN checkLongCall(const OdbcHandle &handle, Call call)
{
    const bool isStatement = handle.type() == SQL_HANDLE_STMT;
    DriverThread::beginCall(isStatement ? handle.get() : nullptr);
    const SQLRETURN code = call();
    if (DriverThread::endCall())
        raiseCancelled(code, handle);
    return checkOdbc(code, handle);
}

/// Sends, or prepares, @p text on a statement. @throws RuntimeError with the driver's text
void executeText(const OdbcHandle &statement, const QString &text);
void prepareText(const OdbcHandle &statement, const QString &text);

/// Goes to the first result of an executed statement that has columns.
/// @returns false when there is none; all results have then been taken in
bool skipToColumns(const OdbcHandle &statement);
/// Takes in what is left of a statement's results, so that late failures are raised.
void takeRemainingResults(const OdbcHandle &statement);

/// The text as ODBC's wide functions want it. They do not write to it.
SQLWCHAR *odbcText(const QString &text);
/// What the driver has written into @p buffer, up to the zero that ends it: the lengths that
/// drivers tell are not to be trusted.
QString textInBuffer(const QString &buffer);

/// The failure that @p handle reports: the texts of all its diagnostic records, joined by line
/// ends, as the driver wrote them. Its number is the first record's native error, or -2147467259
/// ("unspecified error") when that is 0.
RuntimeError odbcError(const OdbcHandle &handle);

/// What the ways to speak with a driver depend on.
struct OdbcAbilities
{
    SQLUINTEGER getDataExtensions = 0; ///< SQL_GD_… flags
    /// A statement that defines something ends the transaction.
    bool definitionsCommit = false;

    /// MariaDB's driver has ways of its own. It writes output parameters as UTF-8 text, whatever
    /// type they are bound as. It takes a procedure's making for as many statements as it has
    /// semicolons, sends it in one piece nevertheless, and crashes when asked for the results it
    /// did not get: of blocks and calls alone it may be asked for more than one. A whole result it
    /// reads at once.
    bool isMariaDb = false;
    /// SQLite has them, too: a column's declared type and size limit nothing there, and a change
    /// that is cancelled ends the transaction, which its driver does not notice.
    bool isSqlite = false;
    /// Texts that are fetched as narrow ones come in UTF-8. Wide ones, MariaDB's driver ends at the
    /// first zero character, and misreckons their length when it has to cut them.
    bool givesUtf8 = false;

    bool has(SQLUINTEGER flags) const { return (getDataExtensions & flags) == flags; }
};
