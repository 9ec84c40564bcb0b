// An ODBC driver for tests, which does what real drivers do when they are at their worst.
//
// Connection string: DRIVER=<this library> and
//     GETDATA=<n>     what SQL_GETDATA_EXTENSIONS says (15 when left out)
//     ONERESULT=1     refuses a statement while another's rows are still to be read
//     ACTIVITIES=<n>  what SQL_MAX_CONCURRENT_ACTIVITIES says
//     NOBEGIN=1       refuses to turn autocommit off
//     NAME=<name>     what SQL_DRIVER_NAME says
//     ROLLSBACK=1     rolls back and ends all results in silence when a statement fails, unless
//     AB=20           is there and UseDeclareFetch=1 is not
//     NARROW=1        gives narrow texts alone
//
// The connection string is written to the file that the environment names in FAKEDRIVER_RECORD.
// Every statement, and every end of a transaction, is added to the file named in
// FAKEDRIVER_STATEMENTS, each behind a line "--".
//
// Statements are words with blanks between them:
//     rows <n>                 a result of n rows
//     text <size> <length>     a column of texts: the size that is described, the length they have
//     expression <size> <length>  the same, not of a table
//     integer                  a column of row numbers
//     storedlength             a cut value's indicator tells what was stored, not what there was
//     misreckoned              indicators tell one byte of whatever length
//     nototal                  long values are given without telling their length
//     stuck                    long values never come to an end, nor get on
//     lost <row>               the connection is lost when that row is fetched
//     rowerror <row>           that row of a block is in error
//     broken <row>             a long value of that row breaks off once it was given in part
//     refuse <n>               fails with n diagnostic records
//     badlengths               makes diagnostic records tell lengths that are not theirs
//     nomemory                 fails for want of memory; the next statement crashes
//     rollback                 ends all results in silence
//     late                     succeeds without rows; asking for more results fails
// A text in row r has the character 'a' + (r + i) % 26 at place i. A statement with parameter marks
// sets text outputs to "out" and integer outputs to 7, but only once all results are taken in.

#include "FakeStatement.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <mutex>
#include <sstream>
#include <thread>

namespace {

template <typename T>
T &as(SQLHANDLE handle)
{
    T &object = *static_cast<T *>(handle);
    object.diagnostics.clear();
    return object;
}

std::string textOf(const SQLCHAR *text, SQLINTEGER length)
{
    const auto *characters = reinterpret_cast<const char *>(text);
    return length == SQL_NTS ? std::string(characters)
                             : std::string(characters, static_cast<size_t>(length));
}

void noteStatement(const std::string &text)
{
    if (const char *const record = std::getenv("FAKEDRIVER_STATEMENTS"))
        std::ofstream(record, std::ios::app | std::ios::binary) << "--\n" << text << '\n';
}

/// What hangIn() has ordered.
struct
{
    std::mutex mutex;
    std::string call;
    std::chrono::milliseconds time{};
    bool isDeaf = false;
    bool isUnhurt = false;
} order;

/// Hangs in the call of that name or text, if it is the one. @returns whether it was cancelled
bool hangs(const std::string &call, const Statement *statement = nullptr)
{
    std::unique_lock lock(order.mutex);
    if (order.call.empty() || call.find(order.call) == std::string::npos)
        return false;
    order.call.clear();
    const auto end = std::chrono::steady_clock::now() + order.time;
    const bool isDeaf = order.isDeaf || statement == nullptr;
    const bool isUnhurt = order.isUnhurt;
    lock.unlock();
    while (std::chrono::steady_clock::now() < end && (isDeaf || !statement->isCancelled))
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    return !isUnhurt && !isDeaf && statement->isCancelled;
}

SQLRETURN executeHanging(Statement &statement, const std::string &text)
{
    noteStatement(text);
    statement.isCancelled = false;
    if (hangs(text, &statement))
        return statement.fail("HY008", 1, "canceled on request");
    return execute(statement, text);
}

template <typename Number>
SQLRETURN give(SQLPOINTER target, Number number)
{
    std::memcpy(target, &number, sizeof number);
    return SQL_SUCCESS;
}

} // namespace

extern "C" {

/// The next call of that name, or with such a text, hangs for that time unless it is cancelled.
/// @param answer  "deaf" when a cancel fails and does nothing, "unhurt" when the call then returns
///                as if nothing had been
void hangIn(const char *call, long milliseconds, const char *answer)
{
    const std::lock_guard lock(order.mutex);
    const std::string how = answer;
    order.call = call;
    order.time = std::chrono::milliseconds(milliseconds);
    order.isDeaf = how == "deaf";
    order.isUnhurt = how == "unhurt";
}

// The driver manager locks nothing here, and what belongs to the call that is cancelled is not
// touched.
SQLRETURN SQL_API SQLCancel(SQLHSTMT handle)
{
    static_cast<Statement *>(static_cast<Handle *>(handle))->isCancelled = true;
    const std::lock_guard lock(order.mutex);
    return order.isDeaf ? SQL_ERROR : SQL_SUCCESS;
}

SQLRETURN SQL_API SQLAllocHandle(SQLSMALLINT type, SQLHANDLE parent, SQLHANDLE *handle)
{
    *handle = type == SQL_HANDLE_STMT
                  ? static_cast<Handle *>(new Statement(static_cast<Connection *>(parent)))
              : type == SQL_HANDLE_DBC ? new Connection
                                       : new Handle;
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLFreeHandle(SQLSMALLINT, SQLHANDLE handle)
{
    delete static_cast<Handle *>(handle);
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLFreeStmt(SQLHSTMT handle, SQLUSMALLINT option)
{
    if (option == SQL_CLOSE)
        as<Statement>(handle).close();
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLSetEnvAttr(SQLHENV, SQLINTEGER, SQLPOINTER, SQLINTEGER)
{
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLSetConnectAttr(SQLHDBC handle, SQLINTEGER attribute, SQLPOINTER, SQLINTEGER)
{
    auto &connection = as<Connection>(handle);
    if (attribute == SQL_ATTR_AUTOCOMMIT && connection.has("NOBEGIN"))
        return connection.fail("HY000", 1453, "there are no transactions");
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLDriverConnect(SQLHDBC handle, SQLHWND, SQLCHAR *text, SQLSMALLINT length,
                                   SQLCHAR *, SQLSMALLINT, SQLSMALLINT *, SQLUSMALLINT)
{
    auto &connection = as<Connection>(handle);
    const std::string whole = textOf(text, length);
    std::istringstream items(whole);
    for (std::string item; std::getline(items, item, ';');) {
        const std::string name = item.substr(0, item.find('='));
        const std::string value = item.substr(std::min(item.size(), name.size() + 1));
        connection.items.insert_or_assign(name, std::atol(value.c_str()));
        if (name == "NAME")
            connection.driverName = value;
    }
    if (const char *const record = std::getenv("FAKEDRIVER_RECORD"))
        std::ofstream(record) << whole;
    hangs("(connect)");
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLDisconnect(SQLHDBC)
{
    hangs("(disconnect)");
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLEndTran(SQLSMALLINT, SQLHANDLE, SQLSMALLINT completion)
{
    const std::string call = completion == SQL_COMMIT ? "(commit)" : "(rollback)";
    noteStatement(call);
    hangs(call);
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLGetInfo(SQLHDBC handle, SQLUSMALLINT what, SQLPOINTER value, SQLSMALLINT room,
                             SQLSMALLINT *length)
{
    const auto &connection = as<Connection>(handle);
    switch (what) {
    case SQL_GETDATA_EXTENSIONS:
        return give(value, static_cast<SQLUINTEGER>(connection.item("GETDATA", 15)));
    case SQL_MAX_CONCURRENT_ACTIVITIES:
        return give(value, static_cast<SQLUSMALLINT>(connection.item("ACTIVITIES")));
    case SQL_CURSOR_COMMIT_BEHAVIOR:
    case SQL_CURSOR_ROLLBACK_BEHAVIOR:
        return give(value, static_cast<SQLUSMALLINT>(
                               connection.has("ROLLSBACK") ? SQL_CB_CLOSE : SQL_CB_PRESERVE));
    case SQL_DRIVER_ODBC_VER:
    case SQL_DBMS_NAME:
    case SQL_DRIVER_NAME: {
        const std::string text = what == SQL_DRIVER_ODBC_VER ? "03.51" : connection.driverName;
        std::snprintf(static_cast<char *>(value), static_cast<size_t>(room), "%s", text.c_str());
        if (length != nullptr)
            *length = static_cast<SQLSMALLINT>(text.size());
        return SQL_SUCCESS;
    }
    default:
        return SQL_ERROR;
    }
}

SQLRETURN SQL_API SQLGetDiagRec(SQLSMALLINT, SQLHANDLE handle, SQLSMALLINT number, SQLCHAR *state,
                                SQLINTEGER *native, SQLCHAR *text, SQLSMALLINT room,
                                SQLSMALLINT *length)
{
    const auto &object = *static_cast<Handle *>(handle);
    if (number < 1 || static_cast<size_t>(number) > object.diagnostics.size())
        return SQL_NO_DATA;
    const Diagnostic &record = object.diagnostics[static_cast<size_t>(number) - 1];
    std::memcpy(state, record.state.c_str(), SQL_SQLSTATE_SIZE + 1);
    *native = record.native;
    std::snprintf(reinterpret_cast<char *>(text), static_cast<size_t>(room), "%s",
                  record.text.c_str());
    *length =
        object.has("badlengths") ? SQLSMALLINT{-5} : static_cast<SQLSMALLINT>(record.text.size());
    return SQL_SUCCESS;
}

// The driver manager takes a driver for one without diagnostics when this is missing.
SQLRETURN SQL_API SQLGetDiagField(SQLSMALLINT, SQLHANDLE, SQLSMALLINT, SQLSMALLINT, SQLPOINTER,
                                  SQLSMALLINT, SQLSMALLINT *)
{
    return SQL_NO_DATA;
}

SQLRETURN SQL_API SQLSetStmtAttr(SQLHSTMT handle, SQLINTEGER attribute, SQLPOINTER value,
                                 SQLINTEGER)
{
    auto &statement = as<Statement>(handle);
    if (attribute == SQL_ATTR_ROW_ARRAY_SIZE)
        statement.rowsPerBlock = reinterpret_cast<SQLULEN>(value);
    else if (attribute == SQL_ATTR_ROWS_FETCHED_PTR)
        statement.fetchedCount = static_cast<SQLULEN *>(value);
    else if (attribute == SQL_ATTR_ROW_STATUS_PTR)
        statement.rowStates = static_cast<SQLUSMALLINT *>(value);
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLGetStmtAttr(SQLHSTMT handle, SQLINTEGER attribute, SQLPOINTER value,
                                 SQLINTEGER, SQLINTEGER *)
{
    if (attribute == SQL_ATTR_ROW_ARRAY_SIZE)
        return give(value, as<Statement>(handle).rowsPerBlock);
    return give(value, SQLULEN{0});
}

SQLRETURN SQL_API SQLExecDirect(SQLHSTMT handle, SQLCHAR *text, SQLINTEGER length)
{
    return executeHanging(as<Statement>(handle), textOf(text, length));
}

SQLRETURN SQL_API SQLPrepare(SQLHSTMT handle, SQLCHAR *text, SQLINTEGER length)
{
    as<Statement>(handle).prepared = textOf(text, length);
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLExecute(SQLHSTMT handle)
{
    auto &statement = as<Statement>(handle);
    return executeHanging(statement, statement.prepared);
}

SQLRETURN SQL_API SQLBindParameter(SQLHSTMT handle, SQLUSMALLINT, SQLSMALLINT, SQLSMALLINT cType,
                                   SQLSMALLINT, SQLULEN, SQLSMALLINT, SQLPOINTER value, SQLLEN,
                                   SQLLEN *indicator)
{
    as<Statement>(handle).outputs.push_back({cType, static_cast<char *>(value), indicator});
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLNumResultCols(SQLHSTMT handle, SQLSMALLINT *count)
{
    *count = static_cast<SQLSMALLINT>(as<Statement>(handle).columns.size());
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLDescribeCol(SQLHSTMT handle, SQLUSMALLINT number, SQLCHAR *name,
                                 SQLSMALLINT room, SQLSMALLINT *length, SQLSMALLINT *type,
                                 SQLULEN *size, SQLSMALLINT *decimals, SQLSMALLINT *nullable)
{
    const Column &column = as<Statement>(handle).columns[number - 1U];
    *length = static_cast<SQLSMALLINT>(std::snprintf(
        reinterpret_cast<char *>(name), static_cast<size_t>(room), "C%u", unsigned{number}));
    *type = column.isText ? SQL_VARCHAR : SQL_BIGINT;
    *size = column.size;
    *decimals = 0;
    *nullable = SQL_NULLABLE;
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLColAttribute(SQLHSTMT handle, SQLUSMALLINT number, SQLUSMALLINT what,
                                  SQLPOINTER text, SQLSMALLINT room, SQLSMALLINT *length,
                                  SQLLEN *value)
{
    const Column &column = as<Statement>(handle).columns[number - 1U];
    if (what == SQL_DESC_BASE_TABLE_NAME && text != nullptr) {
        const char *const table = column.isTableColumn ? "T" : "";
        std::snprintf(static_cast<char *>(text), static_cast<size_t>(room), "%s", table);
        if (length != nullptr)
            *length = static_cast<SQLSMALLINT>(std::strlen(table));
    } else if (value != nullptr) {
        *value = 0;
    }
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLBindCol(SQLHSTMT handle, SQLUSMALLINT number, SQLSMALLINT cType,
                             SQLPOINTER values, SQLLEN width, SQLLEN *indicators)
{
    Column &column = as<Statement>(handle).columns[number - 1U];
    column.isNarrow = column.isText && cType == SQL_C_CHAR;
    if (static_cast<Statement *>(handle)->connection->has("NARROW") && cType == SQL_C_WCHAR)
        return static_cast<Statement *>(handle)->fail("07006", 14, "unsupported type");
    column.cType = cType;
    column.values = static_cast<char *>(values);
    column.width = column.isText ? width : SQLLEN{sizeof(SQLBIGINT)};
    column.indicators = indicators;
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLFetch(SQLHSTMT handle)
{
    auto &statement = as<Statement>(handle);
    if (hangs("(fetch)", &statement))
        return statement.fail("HY008", 1, "canceled on request");
    SQLULEN inBlock = 0;
    SQLRETURN result = SQL_SUCCESS;
    statement.blockStart = statement.fetched;
    for (; inBlock < statement.rowsPerBlock && statement.fetched < statement.rows; ++inBlock) {
        statement.position = statement.fetched;
        if (statement.isAt("lost"))
            return statement.fail("08S01", 3113, "the connection is lost");
        if (fillRow(statement, inBlock) == SQL_SUCCESS_WITH_INFO)
            result = SQL_SUCCESS_WITH_INFO;
        ++statement.fetched;
    }
    if (statement.fetchedCount != nullptr)
        *statement.fetchedCount = inBlock;
    return inBlock == 0 ? SQL_NO_DATA : result;
}

SQLRETURN SQL_API SQLSetPos(SQLHSTMT handle, SQLSETPOSIROW row, SQLUSMALLINT, SQLUSMALLINT)
{
    auto &statement = as<Statement>(handle);
    if ((statement.connection->item("GETDATA", 15) & SQL_GD_BLOCK) == 0)
        return statement.fail("HYC00", 0, "not capable");
    statement.position = statement.blockStart + row - 1;
    for (Column &column : statement.columns)
        column.given = 0;
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLGetData(SQLHSTMT handle, SQLUSMALLINT number, SQLSMALLINT, SQLPOINTER target,
                             SQLLEN room, SQLLEN *indicator)
{
    auto &statement = as<Statement>(handle);
    Column &column = statement.columns[number - 1U];
    const long abilities = statement.connection->item("GETDATA", 15);
    if (column.cType != 0 && (abilities & SQL_GD_BOUND) == 0)
        return statement.fail("07009", 0, "the column is bound");
    for (const Column &other : statement.columns) {
        if ((abilities & SQL_GD_ANY_COLUMN) == 0 && other.cType != 0 && &other > &column)
            return statement.fail("07009", 0, "a later column is bound");
    }
    const std::string bytes = valueBytes(column, statement.position).substr(column.given);
    if (statement.has("stuck")) {
        *indicator = SQL_NO_TOTAL;
        return SQL_SUCCESS_WITH_INFO;
    }
    if (column.given > 0 && statement.isAt("broken")) {
        statement.items.erase("broken");
        return statement.fail("HY000", 57, "the value breaks off");
    }
    const size_t stored = store(column, bytes, static_cast<char *>(target), room);
    const bool isCut = stored < bytes.size();
    column.given += stored;
    *indicator = isCut && statement.has("nototal")
                     ? SQL_NO_TOTAL
                     : static_cast<SQLLEN>(statement.has("storedlength") ? stored : bytes.size());
    return isCut ? SQL_SUCCESS_WITH_INFO : SQL_SUCCESS;
}

SQLRETURN SQL_API SQLMoreResults(SQLHSTMT handle)
{
    auto &statement = as<Statement>(handle);
    if (hangs("(more)", &statement))
        return statement.fail("HY008", 1, "canceled on request");
    if (statement.has("late"))
        return statement.fail("42000", 1476, "a late failure");
    for (const Output &output : statement.outputs) {
        const bool isText = output.cType == SQL_C_WCHAR || output.cType == SQL_C_CHAR;
        const std::string bytes =
            isText ? std::string("o\0u\0t\0\0", 8) : std::string("\7\0\0\0", 4);
        std::memcpy(output.value, bytes.data(), bytes.size());
        *output.indicator = isText ? 6 : 4;
    }
    statement.columns.clear();
    return SQL_NO_DATA;
}

} // extern "C"
