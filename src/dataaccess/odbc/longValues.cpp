#include "dataaccess/odbc/longValues.h"

#include "platform/RuntimeError.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr SQLLEN firstPiece = 16 * 1024;
constexpr SQLLEN largestPiece = 16 * 1024 * 1024;
/// Lengths up to this are believed at once; longer ones only as far as bytes really arrive.
constexpr SQLLEN believedLength = 256 * 1024 * 1024;

/// Bytes that a call stored: all that was left, or as much as there was room for.
SQLLEN storedBytes(SQLLEN indicator, SQLLEN room)
{
    return indicator < 0 ? room : std::min(indicator, room);
}

} // namespace

std::optional<QByteArray> readWholeValue(const OdbcHandle &statement, SQLUSMALLINT number,
                                         const OdbcColumn &column, SQLLEN expectedBytes)
{
    const auto terminator = static_cast<SQLLEN>(column.terminatorBytes());
    QByteArray bytes;
    SQLLEN piece =
        expectedBytes > 0 && expectedBytes <= believedLength ? expectedBytes : firstPiece;
    for (bool isFirst = true;; isFirst = false) {
        const qsizetype before = bytes.size();
        bytes.resize(before + piece + terminator);
        SQLLEN indicator = 0;
        const SQLRETURN code =
            checkOdbc(SQLGetData(statement.get(), number, column.cType(), bytes.data() + before,
                                 piece + terminator, &indicator),
                      statement);
        if (isFirst && indicator == SQL_NULL_DATA)
            return std::nullopt;
        const SQLLEN stored = code == SQL_NO_DATA ? 0 : storedBytes(indicator, piece);
        bytes.resize(before + stored);
        const bool isCut = code == SQL_SUCCESS_WITH_INFO && (indicator < 0 || indicator > piece);
        if (!isCut)
            return bytes;
        const SQLLEN left = indicator < 0 ? 0 : indicator - stored;
        if (left > 0 && left <= believedLength)
            piece = left;
        else
            piece = std::min(piece * 2, largestPiece);
    }
}
