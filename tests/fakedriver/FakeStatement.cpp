#include "FakeStatement.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <sstream>

namespace {

SQLRETURN parse(Statement &statement, std::istringstream words)
{
    std::string word;
    while (words >> word) {
        long number = 0;
        if (word == "rows") {
            words >> statement.rows;
        } else if (word == "text" || word == "expression") {
            Column column{true, word == "text", 0, 0};
            words >> column.size >> column.length;
            statement.columns.push_back(column);
        } else if (word == "integer") {
            statement.columns.push_back({false, true, 10, sizeof(SQLBIGINT)});
        } else if (word == "lost") {
            words >> statement.lostRow;
        } else if (word == "rowerror") {
            words >> statement.errorRow;
        } else if (word == "broken") {
            words >> statement.brokenRow;
        } else if (word == "refuse") {
            if (statement.connection->item("ROLLSBACK", 0) != 0 &&
                statement.connection->item("AB", 0) != 20)
                statement.endAllResults();
            for (words >> number; number > 0; --number)
                statement.fail("42000", static_cast<SQLINTEGER>(900 + number),
                               "reason " + std::to_string(number));
            return SQL_ERROR;
        } else if (word == "nomemory") {
            statement.connection->isBroken = true;
            return statement.fail("HY001", 14, "no memory");
        } else if (word == "rollback") {
            statement.endAllResults();
        }
        statement.storedLength |= word == "storedlength";
        statement.misreckons |= word == "misreckoned";
        statement.noTotal |= word == "nototal";
        statement.isStuck |= word == "stuck";
        statement.badLengths |= word == "badlengths";
        statement.isLate |= word == "late";
    }
    return SQL_SUCCESS;
}

} // namespace

SQLRETURN execute(Statement &statement, const std::string &text)
{
    const auto &others = statement.connection->statements;
    const bool isBusy = std::any_of(others.begin(), others.end(), [&](const Statement *other) {
        return other != &statement && other->hasOpenRows();
    });
    if (isBusy && statement.connection->item("ONERESULT", 0) != 0)
        return statement.fail("HY000", 0, "Connection is busy with results for another command");
    if (statement.hasOpenRows())
        return statement.fail("24000", 0, "Invalid cursor state");
    if (statement.connection->isBroken)
        std::abort();
    statement.close();
    return parse(statement, std::istringstream(text));
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
            statement.misreckons
                ? 1
                : static_cast<SQLLEN>(statement.storedLength ? stored : bytes.size());
        isCut |= stored < bytes.size();
    }
    const bool isError = static_cast<long>(statement.position) == statement.errorRow;
    if (statement.rowStates != nullptr) {
        statement.rowStates[inBlock] = isError ? SQL_ROW_ERROR
                                       : isCut ? SQL_ROW_SUCCESS_WITH_INFO
                                               : SQL_ROW_SUCCESS;
    }
    if (isError)
        statement.fail("22003", 77, "row in error");
    return isCut || isError ? SQL_SUCCESS_WITH_INFO : SQL_SUCCESS;
}
