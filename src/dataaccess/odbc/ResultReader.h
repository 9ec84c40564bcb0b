#pragma once

#include "dataaccess/odbc/sessionParties.h"
#include "dataaccess/rows/MemoryTable.h"
#include "dataaccess/rows/dataAccessTypes.h"

#include <exception>
#include <memory>
#include <vector>

class OdbcCursor;
class OdbcSession;

/// Reads a result forward, a portion of rows at a time, which come into memory.
///
/// Portions are taken on the session's thread, which may read one ahead meanwhile; in between,
/// whoever holds the reader may look at the rows, unless the session is not open any more. Wherever
/// it is let go, it ends on that thread.
class ResultReader final : private SessionClient
{
public:
    /// Sends @p commandText, as OdbcSession::open(), and takes the first block of rows.
    /// @param isWhole  takes all rows; also done where what was sent may yet fail behind them
    /// @returns null when nothing with columns came back
    /// @throws RuntimeError with the driver's text, or the adapter's
    static std::shared_ptr<ResultReader> open(const std::shared_ptr<OdbcSession> &session,
                                              const QString &commandText, int rowsPerBlock,
                                              bool isWhole);

    /// Takes the next portion in place of the present one: as many blocks as come in a moment, one
    /// at least. Without any rows this is the end.
    void takePortion();
    /// Reads the portion that takePortion() is to take next.
    void readAhead();

    bool hasAllRows() const { return m_hasAllRows; }

    std::vector<FieldInfo> fields;
    MemoryTable rows{0}; ///< the present portion, or all the rest
    /// Where the rows end, if a failure ends them.
    std::exception_ptr failure;

private:
    ResultReader(const std::shared_ptr<OdbcSession> &session, std::unique_ptr<OdbcCursor> cursor);
    ~ResultReader();

    void sessionClosing() override;
    bool hasOpenResult() const override { return m_cursor != nullptr; }
    void releaseResult() override;
    void read(std::chrono::steady_clock::time_point end);
    void takeRead();

    std::shared_ptr<OdbcSession> m_session;
    /// Kept behind the last row as well: drivers take their time to free a large result, which
    /// nobody waits for when the reader ends.
    std::unique_ptr<OdbcCursor> m_cursor;
    bool m_hasAllRows = false;
    // What has been read and not taken yet.
    MemoryTable m_read;
    std::exception_ptr m_readFailure;
    bool m_isReadToEnd = false;
    bool m_isRowRead = false; ///< that of the cursor
    /// For the next portion. Short at first, when somebody waits to see any rows at all.
    std::chrono::microseconds m_portionTime{250};
    RowWriter m_writer;
};
