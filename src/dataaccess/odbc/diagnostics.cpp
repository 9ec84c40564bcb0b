#include "dataaccess/odbc/OdbcHandle.h"

#include <QStringList>

#include <algorithm>
#include <limits>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr int unspecifiedError = -2147467259;
// A driver that never says that its records end must not keep us for ever.
constexpr SQLSMALLINT maxRecords = 64;
constexpr qsizetype usualLength = 1024;
constexpr qsizetype maxLength = std::numeric_limits<SQLSMALLINT>::max();

struct DiagnosticRecord
{
    QString state;
    SQLINTEGER nativeError = 0;
    QString text;
};

std::optional<DiagnosticRecord> readRecord(const OdbcHandle &handle, SQLSMALLINT number)
{
    qsizetype room = usualLength;
    for (;;) {
        QString state(SQL_SQLSTATE_SIZE + 1, QChar::Null);
        QString text(room + 1, QChar::Null);
        SQLINTEGER nativeError = 0;
        SQLSMALLINT length = 0;
        const SQLRETURN code = SQLGetDiagRecW(
            handle.type(), handle.get(), number, reinterpret_cast<SQLWCHAR *>(state.data()),
            &nativeError, reinterpret_cast<SQLWCHAR *>(text.data()), static_cast<SQLSMALLINT>(room),
            &length);
        if (!SQL_SUCCEEDED(code))
            return std::nullopt;
        if (length >= room && room < maxLength) {
            room = std::min(maxLength, qsizetype{length} + 1);
            continue;
        }
        return DiagnosticRecord{textInBuffer(state), nativeError, textInBuffer(text)};
    }
}

} // namespace

RuntimeError odbcError(const OdbcHandle &handle)
{
    QStringList texts;
    std::optional<DiagnosticRecord> first;
    for (SQLSMALLINT number = 1; number <= maxRecords; ++number) {
        const auto record = readRecord(handle, number);
        if (!record)
            break;
        if (!first)
            first = record;
        texts.append(record->text);
    }
    if (!first)
        return RuntimeError(unspecifiedError, errorDescription(ErrorNumber::ProviderFailed));
    RuntimeError error(first->nativeError != 0 ? first->nativeError : unspecifiedError,
                       texts.join("\r\n"_L1));
    error.sqlState = first->state;
    error.nativeError = first->nativeError;
    return error;
}
