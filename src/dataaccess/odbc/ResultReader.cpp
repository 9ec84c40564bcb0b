#include "dataaccess/odbc/ResultReader.h"

#include "dataaccess/odbc/OdbcCursor.h"
#include "dataaccess/odbc/OdbcSession.h"

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

namespace {

/// Long enough for the way to the other thread and back not to matter.
constexpr auto portionTime = 1ms;

} // namespace

std::shared_ptr<ResultReader> ResultReader::open(const std::shared_ptr<OdbcSession> &session,
                                                 const QString &commandText, int rowsPerBlock,
                                                 bool isWhole)
{
    std::unique_ptr<OdbcCursor> cursor = session->open(commandText, rowsPerBlock);
    if (!cursor)
        return nullptr;
    isWhole = isWhole || cursor->mayFailLater();
    const std::shared_ptr<ResultReader> reader(
        new ResultReader(session, std::move(cursor)),
        [session](ResultReader *ended) { session->post([ended] { delete ended; }); });
    reader->takeRows(isWhole ? Clock::time_point::max() : Clock::time_point::min());
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
{
    m_session->addClient(this);
}

ResultReader::~ResultReader()
{
    m_session->removeClient(this);
}

void ResultReader::takePortion()
{
    rows = MemoryTable(static_cast<int>(fields.size()));
    takeRows(Clock::now() + portionTime);
}

void ResultReader::takeRows(Clock::time_point end)
{
    try {
        if (m_isRowTaken)
            m_cursor->next();
        for (; !m_cursor->atEnd(); m_cursor->next()) {
            m_writer.clear();
            m_cursor->pack(m_writer, NullForm::Null);
            rows.addRow(m_writer);
            m_isRowTaken = true;
            if (m_cursor->isLastOfBlock() && Clock::now() >= end)
                return;
        }
    } catch (...) { // memory may run out as well
        failure = std::current_exception();
    }
    m_hasAllRows = true;
}

void ResultReader::sessionClosing()
{
    m_hasAllRows = true;
    m_cursor.reset();
}

void ResultReader::releaseResult()
{
    if (!m_hasAllRows)
        takeRows(Clock::time_point::max());
    m_cursor.reset();
}
