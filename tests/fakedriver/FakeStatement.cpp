#include "FakeStatement.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <sstream>

namespace {

void parse(Statement &statement, std::istringstream words)
{
    for (std::string word; words >> word; words.clear()) {
        long number = 0;
        size_t length = 0;
        words >> number >> length;
        statement.items.emplace(word, number);
        if (word == "text" || word == "expression")
            statement.columns.push_back(
                {true, word == "text", static_cast<SQLULEN>(number), length});
        else if (word == "integer")
            statement.columns.push_back({false, true, 10, sizeof(SQLBIGINT)});
    }
    statement.rows = static_cast<SQLULEN>(statement.item("rows"));
}

} // namespace

SQLRETURN execute(Statement &statement, const std::string &text)
{
    const auto &others = statement.connection->statements;
    const bool isBusy = std::any_of(others.begin(), others.end(), [&](const Statement *other) {
        return other != &statement && other->hasOpenRows();
    });
    if (isBusy && statement.connection->has("ONERESULT"))
        return statement.fail("HY000", 0, "Connection is busy with results for another command");
    if (statement.hasOpenRows())
        return statement.fail("24000", 0, "Invalid cursor state");
    if (statement.connection->isBroken)
        std::abort();
    statement.close();
    parse(statement, std::istringstream(text));
    const bool rollsBack = statement.has("refuse") && statement.connection->has("ROLLSBACK") &&
                           (statement.connection->item("AB") != 20 ||
                            statement.connection->item("UseDeclareFetch") != 0);
    if (rollsBack || statement.has("rollback"))
        statement.endAllResults();
    for (long number = statement.item("refuse"); number > 0; --number)
        statement.fail("42000", static_cast<SQLINTEGER>(900 + number),
                       "reason " + std::to_string(number));
    statement.connection->isBroken = statement.has("nomemory");
    if (statement.connection->isBroken)
        statement.fail("HY001", 14, "no memory");
    return statement.diagnostics.empty() ? SQL_SUCCESS : SQL_ERROR;
}

std::string valueBytes(const Column &column, SQLULEN row)
{
    std::string bytes;
    if (!column.isText) {
        const auto number = static_cast<SQLBIGINT>(row);
        bytes.assign(reinterpret_cast<const char *>(&number), sizeof number);
        return bytes;
    }
    for (size_t i = 0; i < column.length; ++i) {
        bytes += static_cast<char>('a' + (row + i) % 26);
        if (!column.isNarrow)
            bytes += '\0';
    }
    return bytes;
}

size_t store(const Column &column, const std::string &bytes, char *target, SQLLEN room)
{
    const size_t terminator = column.isNarrow ? 1 : column.isText ? sizeof(SQLWCHAR) : 0;
    const size_t stored = std::min(bytes.size(), static_cast<size_t>(room) - terminator);
    std::memcpy(target, bytes.data(), stored);
    std::memset(target + stored, 0, terminator);
    return stored;
}

SQLRETURN fillRow(Statement &statement, SQLULEN inBlock)
{
    bool isCut = false;
    for (Column &column : statement.columns) {
        column.given = 0;
        if (column.cType == 0)
            continue;
        const std::string bytes = valueBytes(column, statement.position);
        const auto offset = static_cast<SQLLEN>(inBlock) * column.width;
        const size_t stored = store(column, bytes, column.values + offset, column.width);
        column.indicators[inBlock] =
            statement.has("misreckoned")
                ? 1
                : static_cast<SQLLEN>(statement.has("storedlength") ? stored : bytes.size());
        isCut |= stored < bytes.size();
    }
    const bool isError = statement.isAt("rowerror");
    if (statement.rowStates != nullptr) {
        statement.rowStates[inBlock] = isError ? SQL_ROW_ERROR
                                       : isCut ? SQL_ROW_SUCCESS_WITH_INFO
                                               : SQL_ROW_SUCCESS;
    }
    if (isError)
        statement.fail("22003", 77, "row in error");
    return isCut || isError ? SQL_SUCCESS_WITH_INFO : SQL_SUCCESS;
}
