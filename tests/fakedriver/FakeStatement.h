#pragma once

#include <sql.h>
#include <sqlext.h>

#include <atomic>
#include <map>
#include <string>
#include <vector>

struct Diagnostic
{
    std::string state;
    SQLINTEGER native;
    std::string text;
};

struct Handle
{
    virtual ~Handle() = default;

    std::vector<Diagnostic> diagnostics;
    /// The items of a connection string, the words of a statement; each with its number or 0.
    std::map<std::string, long> items;

    bool has(const std::string &name) const { return items.contains(name); }
    long item(const std::string &name, long otherwise = 0) const
    {
        const auto found = items.find(name);
        return found == items.end() ? otherwise : found->second;
    }
    SQLRETURN fail(const std::string &state, SQLINTEGER native, const std::string &text)
    {
        diagnostics.push_back({state, native, text});
        return SQL_ERROR;
    }
};

struct Statement;

struct Connection : Handle
{
    std::string driverName = "Fake";
    std::vector<Statement *> statements;
    bool isBroken = false;
};

struct Column
{
    bool isText;
    bool isTableColumn;
    SQLULEN size;
    size_t length;
    bool isNarrow = false;
    SQLSMALLINT cType = 0; ///< 0 while unbound
    char *values = nullptr;
    SQLLEN width = 0;
    SQLLEN *indicators = nullptr;
    size_t given = 0; ///< bytes that SQLGetData has given of the current row's value
};

struct Output
{
    SQLSMALLINT cType;
    char *value;
    SQLLEN *indicator;
};

struct Statement : Handle
{
    explicit Statement(Connection *c)
        : connection(c)
    {
        c->statements.push_back(this);
    }
    ~Statement() override { std::erase(connection->statements, this); }

    Connection *connection;
    std::string prepared;
    std::vector<Column> columns;
    std::vector<Output> outputs;
    SQLULEN rows = 0;
    SQLULEN fetched = 0;  ///< rows given so far
    SQLULEN position = 0; ///< the row that SQLGetData reads
    SQLULEN blockStart = 0;
    SQLULEN rowsPerBlock = 1;
    SQLULEN *fetchedCount = nullptr;
    SQLUSMALLINT *rowStates = nullptr;
    std::atomic<bool> isCancelled = false;

    /// Whether the word that names a row names the current one.
    bool isAt(const std::string &word) const
    {
        return item(word, -1) == static_cast<long>(position);
    }
    bool hasOpenRows() const { return !columns.empty() && fetched < rows; }
    void endAllResults()
    {
        for (Statement *statement : connection->statements)
            statement->rows = statement->fetched;
    }
    void close()
    {
        columns.clear();
        rows = fetched = 0;
        items.clear();
    }
};

/// Understands a statement and makes its result. @returns what the driver returns
SQLRETURN execute(Statement &statement, const std::string &text);
/// Fetches the row that stands at position into place @p inBlock of the bound memory.
SQLRETURN fillRow(Statement &statement, SQLULEN inBlock);
/// A value as its bound type has it: a text, or a 64-bit number.
std::string valueBytes(const Column &column, SQLULEN row);
/// Stores as much of @p bytes as fits. @returns the bytes stored
size_t store(const Column &column, const std::string &bytes, char *target, SQLLEN room);
