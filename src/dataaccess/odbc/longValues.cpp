#include "dataaccess/odbc/ColumnBuffer.h"

#include "platform/RuntimeError.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr SQLLEN firstPiece = SQLLEN{16} * 1024;
constexpr SQLLEN largestPiece = SQLLEN{16} * 1024 * 1024;
/// Lengths up to this are believed at once; longer ones only as far as bytes really arrive.
constexpr SQLLEN believedLength = SQLLEN{256} * 1024 * 1024;

/// A value of unknown length that goes on after this is one that never ends.
constexpr qsizetype longestValue = qsizetype{1} << 31;

/// Room for a piece whose length is told to be @p told, in whole units; @p otherwise where that is
/// not told or not believed.
SQLLEN roomFor(SQLLEN told, SQLLEN terminator, SQLLEN otherwise)
{
    const SQLLEN unit = std::max<SQLLEN>(terminator, 1);
    return told > 0 && told <= believedLength ? (told + unit - 1) / unit * unit : otherwise;
}

/// Whether there may be more of a value than a piece of it. Drivers tell the length of what was
/// left, or none, or that of what they stored.
bool mayGoOn(SQLRETURN code, SQLLEN indicator, SQLLEN room, SQLLEN terminator)
{
    const bool isLonger = indicator < 0 || indicator > room;
    const bool isFull = code == SQL_SUCCESS_WITH_INFO && indicator >= room - terminator;
    return code != SQL_NO_DATA && (isLonger || isFull);
}

/// Marks the end of a buffer of @p room bytes, so that cutPieceBytes() sees whether it was reached.
void markEnd(char *buffer, SQLLEN room, SQLLEN terminator)
{
    std::fill_n(buffer + room - terminator, 2 * terminator, '\xFF');
}

/// Bytes of a piece that was cut at the end of its buffer. A text may end a unit earlier, where a
/// surrogate pair would have been split; 0 when it does not end at all.
SQLLEN cutPieceBytes(const char *buffer, SQLLEN room, SQLLEN terminator)
{
    if (terminator == 0)
        return room;
    for (const SQLLEN end : {room, room - terminator}) {
        if (std::all_of(buffer + end, buffer + end + terminator, [](char c) { return c == 0; }))
            return end;
    }
    return 0;
}

[[noreturn]] void raiseEndless(const OdbcColumn &column)
{
    throw RuntimeError(
        ErrorNumber::ProviderFailed,
        u"The driver does not give the rest of a value of column \"%1\"."_s.arg(column.field.name));
}

} // namespace

std::optional<QByteArray> readWholeValue(const OdbcHandle &statement, SQLUSMALLINT number,
                                         const OdbcColumn &column, SQLLEN expectedBytes)
{
    const auto terminator = static_cast<SQLLEN>(column.terminatorBytes());
    QByteArray bytes;
    SQLLEN room = roomFor(expectedBytes, terminator, firstPiece);
    for (bool isFirst = true;; isFirst = false) {
        const qsizetype before = bytes.size();
        bytes.resize(before + room + terminator);
        char *const piece = bytes.data() + before;
        markEnd(piece, room, terminator);
        SQLLEN indicator = 0;
        const SQLRETURN code = checkLongCall(statement, [&] {
            return SQLGetData(statement.get(), number, column.cType(), piece, room + terminator,
                              &indicator);
        });
        if (isFirst && indicator == SQL_NULL_DATA)
            return std::nullopt;
        if (!mayGoOn(code, indicator, room, terminator)) {
            bytes.resize(before + (code == SQL_NO_DATA ? 0 : indicator));
            return bytes;
        }
        const SQLLEN stored = cutPieceBytes(piece, room, terminator);
        bytes.resize(before + stored);
        if (stored == 0 || bytes.size() > longestValue)
            raiseEndless(column);
        const SQLLEN left = indicator < 0 ? 0 : indicator - stored;
        room = roomFor(left, terminator, std::min(room * 2, largestPiece));
    }
}
