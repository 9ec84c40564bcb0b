#include "support/BareOdbc.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <vector>

namespace {

constexpr SQLULEN largestText = 4000;
constexpr SQLULEN longestLine = 255;

void check(SQLRETURN code, SQLSMALLINT type, SQLHANDLE handle)
{
    if (SQL_SUCCEEDED(code) || code == SQL_NO_DATA)
        return;
    SQLCHAR state[6] = {};
    SQLCHAR text[1024] = {};
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    SQLGetDiagRec(type, handle, 1, state, &native, text, sizeof text, &length);
    std::fprintf(stderr, "%s %s\n", reinterpret_cast<char *>(state),
                 reinterpret_cast<char *>(text));
    std::exit(1);
}

SQLWCHAR *wide(const QString &text)
{
    return reinterpret_cast<SQLWCHAR *>(const_cast<ushort *>(text.utf16()));
}

SQLPOINTER number(SQLULEN value)
{
    return reinterpret_cast<SQLPOINTER>(value);
}

struct Binding
{
    SQLSMALLINT cType;
    SQLLEN width;
};

/// Whether the driver is one whose narrow texts the program takes, as they cost far less.
bool givesNarrowTexts(SQLHANDLE connection)
{
    char name[128] = {};
    SQLSMALLINT length = 0;
    SQLGetInfo(connection, SQL_DRIVER_NAME, name, sizeof name, &length);
    return QByteArrayView(name).startsWith("libmaodbc");
}

/// The C types that the program fetches in, too.
Binding bindingOf(SQLSMALLINT sqlType, SQLULEN size, bool narrowTexts)
{
    switch (sqlType) {
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
    case SQL_BIGINT:
        return {SQL_C_SBIGINT, sizeof(SQLBIGINT)};
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE:
        return {SQL_C_DOUBLE, sizeof(SQLDOUBLE)};
    case SQL_NUMERIC:
    case SQL_DECIMAL:
        return {SQL_C_CHAR, 64};
    case SQL_TYPE_DATE:
    case SQL_TYPE_TIMESTAMP:
        return {SQL_C_TYPE_TIMESTAMP, sizeof(SQL_TIMESTAMP_STRUCT)};
    default:
        if (narrowTexts)
            return {SQL_C_CHAR, static_cast<SQLLEN>(std::min(size, largestText) * 4 + 1)};
        return {SQL_C_WCHAR, static_cast<SQLLEN>((std::min(size, largestText) + 1) * 2)};
    }
}

/// A statement's columns, bound to memory that nobody reads.
class BoundColumns
{
public:
    BoundColumns(SQLHANDLE statement, SQLULEN rows, bool narrowTexts)
        : m_narrowTexts(narrowTexts)
    {
        SQLSMALLINT count = 0;
        check(SQLNumResultCols(statement, &count), SQL_HANDLE_STMT, statement);
        for (SQLSMALLINT column = 1; column <= count; ++column)
            bind(statement, static_cast<SQLUSMALLINT>(column), rows);
    }

private:
    void bind(SQLHANDLE statement, SQLUSMALLINT column, SQLULEN rows)
    {
        SQLWCHAR name[256];
        SQLSMALLINT length = 0;
        SQLSMALLINT sqlType = 0;
        SQLSMALLINT decimals = 0;
        SQLSMALLINT nullable = 0;
        SQLULEN size = 0;
        check(SQLDescribeColW(statement, column, name, std::size(name), &length, &sqlType, &size,
                              &decimals, &nullable),
              SQL_HANDLE_STMT, statement);
        const Binding binding = bindingOf(sqlType, size, m_narrowTexts);
        m_values.emplace_back(static_cast<size_t>(binding.width) * rows);
        m_indicators.emplace_back(rows);
        check(SQLBindCol(statement, column, binding.cType, m_values.back().data(), binding.width,
                         m_indicators.back().data()),
              SQL_HANDLE_STMT, statement);
    }

    bool m_narrowTexts;
    std::vector<std::vector<char>> m_values;
    std::vector<std::vector<SQLLEN>> m_indicators;
};

} // namespace

BareOdbc::BareOdbc(const QString &odbcConnectionString)
{
    SQLAllocHandle(SQL_HANDLE_ENV, nullptr, &m_environment);
    SQLSetEnvAttr(m_environment, SQL_ATTR_ODBC_VERSION, number(SQL_OV_ODBC3), 0);
    SQLAllocHandle(SQL_HANDLE_DBC, m_environment, &m_connection);
    SQLSMALLINT length = 0;
    check(SQLDriverConnectW(m_connection, nullptr, wide(odbcConnectionString),
                            static_cast<SQLSMALLINT>(odbcConnectionString.size()), nullptr, 0,
                            &length, SQL_DRIVER_NOPROMPT),
          SQL_HANDLE_DBC, m_connection);
    SQLAllocHandle(SQL_HANDLE_STMT, m_connection, &m_statement);
}

BareOdbc::~BareOdbc()
{
    SQLFreeHandle(SQL_HANDLE_STMT, m_statement);
    SQLDisconnect(m_connection);
    SQLFreeHandle(SQL_HANDLE_DBC, m_connection);
    SQLFreeHandle(SQL_HANDLE_ENV, m_environment);
}

void BareOdbc::execute(const QString &text)
{
    check(SQLExecDirectW(m_statement, wide(text), static_cast<SQLINTEGER>(text.size())),
          SQL_HANDLE_STMT, m_statement);
    SQLFreeStmt(m_statement, SQL_CLOSE);
}

void BareOdbc::beginTransactions()
{
    check(SQLSetConnectAttr(m_connection, SQL_ATTR_AUTOCOMMIT, number(SQL_AUTOCOMMIT_OFF),
                            SQL_IS_UINTEGER),
          SQL_HANDLE_DBC, m_connection);
}

void BareOdbc::rollback()
{
    check(SQLEndTran(SQL_HANDLE_DBC, m_connection, SQL_ROLLBACK), SQL_HANDLE_DBC, m_connection);
}

qint64 BareOdbc::readLines(const QString &call)
{
    SQLHANDLE statement = nullptr;
    SQLAllocHandle(SQL_HANDLE_STMT, m_connection, &statement);
    check(SQLPrepareW(statement, wide(call), static_cast<SQLINTEGER>(call.size())), SQL_HANDLE_STMT,
          statement);
    char16_t text[longestLine + 1];
    SQLLEN textLength = 0;
    SQLINTEGER status = 0;
    SQLLEN statusLength = 0;
    check(SQLBindParameter(statement, 1, SQL_PARAM_OUTPUT, SQL_C_WCHAR, SQL_WVARCHAR, longestLine,
                           0, text, sizeof text, &textLength),
          SQL_HANDLE_STMT, statement);
    check(SQLBindParameter(statement, 2, SQL_PARAM_OUTPUT, SQL_C_SLONG, SQL_INTEGER, 0, 0, &status,
                           sizeof status, &statusLength),
          SQL_HANDLE_STMT, statement);
    qint64 lines = -1;
    for (; status == 0; ++lines) {
        check(SQLExecute(statement), SQL_HANDLE_STMT, statement);
        while (SQLMoreResults(statement) != SQL_NO_DATA) {
        }
    }
    SQLFreeHandle(SQL_HANDLE_STMT, statement);
    return lines;
}

qint64 BareOdbc::retrieve(const QString &query, SQLULEN rowsPerBlock)
{
    SQLHANDLE statement = nullptr;
    SQLAllocHandle(SQL_HANDLE_STMT, m_connection, &statement);
    SQLULEN fetched = 0;
    SQLSetStmtAttr(statement, SQL_ATTR_ROW_ARRAY_SIZE, number(rowsPerBlock), 0);
    SQLSetStmtAttr(statement, SQL_ATTR_ROWS_FETCHED_PTR, &fetched, 0);
    check(SQLExecDirectW(statement, wide(query), static_cast<SQLINTEGER>(query.size())),
          SQL_HANDLE_STMT, statement);
    qint64 rows = 0;
    {
        const BoundColumns columns(statement, rowsPerBlock, givesNarrowTexts(m_connection));
        for (;;) {
            const SQLRETURN code = SQLFetch(statement);
            check(code, SQL_HANDLE_STMT, statement);
            if (code == SQL_NO_DATA)
                break;
            rows += static_cast<qint64>(fetched);
        }
    }
    SQLFreeHandle(SQL_HANDLE_STMT, statement);
    return rows;
}
