#include "dataaccess/odbc/ResultReader.h"

#include "dataaccess/odbc/OdbcCursor.h"
#include "dataaccess/odbc/OdbcSession.h"

#include <algorithm>
#include <utility>

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

namespace {

/// Long enough for the way to the other thread and back not to matter.
constexpr std::chrono::microseconds longestPortion = 2ms;

} // namespace

std::shared_ptr<ResultReader> ResultReader::open(const std::shared_ptr<OdbcSession> &session,
                                                 const QString &commandText, int rowsPerBlock,
                                                 bool isWhole)
{
    std::unique_ptr<OdbcCursor> cursor = session->open(commandText, rowsPerBlock);
    if (!cursor)
        return nullptr;
    isWhole = isWhole || cursor->mayFailLater();
    std::shared_ptr<ResultReader> reader(
        new ResultReader(session, std::move(cursor)),
        [session](ResultReader *ended) { session->post([ended] { delete ended; }); });
    reader->read(isWhole ? Clock::time_point::max() : Clock::time_point::min());
    reader->takeRead();
    if (isWhole && reader->failure)
        std::rethrow_exception(reader->failure);
    return reader;
}

ResultReader::ResultReader(const std::shared_ptr<OdbcSession> &session,
                           std::unique_ptr<OdbcCursor> cursor)
    : fields(cursor->fields())
    , rows(static_cast<int>(fields.size()))
    , m_session(session)
    , m_cursor(std::move(cursor))
    , m_read(static_cast<int>(fields.size()))
{
    m_session->addClient(this);
}

ResultReader::~ResultReader()
{
    m_session->removeClient(this);
}

void ResultReader::takePortion()
{
    readAhead();
    takeRead();
}

void ResultReader::readAhead()
{
    if (m_read.rowCount() != 0 || m_isReadToEnd)
        return;
    read(Clock::now() + m_portionTime);
    m_portionTime = std::min(2 * m_portionTime, longestPortion);
}

void ResultReader::takeRead()
{
    rows = std::exchange(m_read, MemoryTable(static_cast<int>(fields.size())));
    failure = m_readFailure;
    m_hasAllRows = m_isReadToEnd;
}

void ResultReader::read(Clock::time_point end)
{
    try {
        if (m_isRowRead)
            m_cursor->next();
        for (; !m_cursor->atEnd(); m_cursor->next()) {
            m_writer.clear();
            m_cursor->pack(m_writer, NullForm::Null);
            m_read.addRow(m_writer);
            m_isRowRead = true;
            if (m_cursor->isLastOfBlock() && Clock::now() >= end)
                return;
        }
    } catch (RuntimeError &error) {
        error.isCancelled = DriverThread::isCancelWanted();
        m_readFailure = std::current_exception();
    } catch (...) { // memory may run out as well
        m_readFailure = std::current_exception();
    }
    m_isReadToEnd = true;
}

void ResultReader::sessionClosing()
{
    m_isReadToEnd = true;
    m_cursor.reset();
}

void ResultReader::releaseResult()
{
    if (!m_isReadToEnd)
        read(Clock::time_point::max());
    m_cursor.reset();
}
