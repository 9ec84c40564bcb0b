#include "dataaccess/odbc/OdbcHandle.h"

static_assert(sizeof(SQLWCHAR) == sizeof(char16_t));

OdbcHandle::OdbcHandle(SQLSMALLINT type, const OdbcHandle &parent)
    : m_type(type)
    , m_takesUtf8(parent.m_takesUtf8)
{
    checkOdbc(SQLAllocHandle(type, parent.get(), &m_handle), parent);
}

void OdbcHandle::reset()
{
    if (m_handle != nullptr)
        SQLFreeHandle(m_type, m_handle);
    m_handle = nullptr;
}

void raiseCancelled(SQLRETURN code, const OdbcHandle &handle)
{
    if (SQL_SUCCEEDED(code) || code == SQL_NO_DATA) {
        // By the standard the cursor is closed of one that went through all the same.
        SQLFreeStmt(handle.get(), SQL_CLOSE);
        throw DriverThread::cancelledError();
    }
    RuntimeError error = odbcError(handle);
    // The driver manager may have dropped what the driver said to make room for the cancel.
    throw error.sqlState.isEmpty() ? DriverThread::cancelledError() : error;
}

SQLRETURN checkOdbc(SQLRETURN code, const OdbcHandle &handle)
{
    if (code == SQL_SUCCESS || code == SQL_SUCCESS_WITH_INFO || code == SQL_NO_DATA)
        return code;
    throw odbcError(handle);
}

namespace {

using NarrowFunction = SQLRETURN (*)(SQLHSTMT, SQLCHAR *, SQLINTEGER);
using WideFunction = SQLRETURN (*)(SQLHSTMT, SQLWCHAR *, SQLINTEGER);

void passText(const OdbcHandle &statement, const QString &text, NarrowFunction narrow,
              WideFunction wide)
{
    checkLongCall(statement, [&] {
        if (!statement.takesUtf8())
            return wide(statement.get(), odbcText(text), static_cast<SQLINTEGER>(text.size()));
        QByteArray utf8 = text.toUtf8();
        return narrow(statement.get(), reinterpret_cast<SQLCHAR *>(utf8.data()),
                      static_cast<SQLINTEGER>(utf8.size()));
    });
}

SQLSMALLINT columnCount(const OdbcHandle &statement)
{
    SQLSMALLINT columns = 0;
    checkOdbc(SQLNumResultCols(statement.get(), &columns), statement);
    return columns;
}

bool goToNextResult(const OdbcHandle &statement)
{
    return !statement.hasOneResult() &&
           checkLongCall(statement, [&] { return SQLMoreResults(statement.get()); }) != SQL_NO_DATA;
}

} // namespace

void executeText(const OdbcHandle &statement, const QString &text)
{
    passText(statement, text, SQLExecDirect, SQLExecDirectW);
}

void prepareText(const OdbcHandle &statement, const QString &text)
{
    passText(statement, text, SQLPrepare, SQLPrepareW);
}

bool skipToColumns(const OdbcHandle &statement)
{
    while (columnCount(statement) == 0) {
        if (!goToNextResult(statement))
            return false;
    }
    return true;
}

void takeRemainingResults(const OdbcHandle &statement)
{
    while (goToNextResult(statement)) {
    }
}

SQLWCHAR *odbcText(const QString &text)
{
    return reinterpret_cast<SQLWCHAR *>(const_cast<ushort *>(text.utf16()));
}

QString textInBuffer(const QString &buffer)
{
    const qsizetype end = buffer.indexOf(QChar::Null);
    return end < 0 ? buffer : buffer.left(end);
}
