#include "dataaccess/Connection.h"

#include "dataaccess/Recordset.h"
#include "dataaccess/odbc/OdbcSession.h"
#include "dataaccess/providers/providers.h"
#include "platform/RuntimeError.h"

Connection::~Connection()
{
    if (m_session)
        m_session->close();
}

ObjectStateEnum Connection::State() const
{
    return m_session && m_session->isOpen() ? adStateOpen : adStateClosed;
}

const std::shared_ptr<OdbcSession> &Connection::openSession() const
{
    if (State() == adStateClosed)
        throw RuntimeError(ErrorNumber::ObjectClosed);
    return m_session;
}

std::shared_ptr<OdbcSession> Connection::sessionOf(const std::shared_ptr<Connection> &connection)
{
    if (!connection || connection->State() == adStateClosed)
        throw RuntimeError(ErrorNumber::InvalidConnection);
    return connection->m_session;
}

void Connection::Open(const QString &connectionString)
{
    if (State() == adStateOpen)
        throw RuntimeError(ErrorNumber::ObjectOpen);
    m_session = OdbcSession::open(openProvider(connectionString));
}

void Connection::Close()
{
    openSession()->close();
}

QString Connection::hint() const
{
    return State() == adStateOpen ? m_session->hint() : QString();
}

std::shared_ptr<Recordset> Connection::Execute(const QString &commandText)
{
    openSession();
    auto recordset = std::make_shared<Recordset>();
    recordset->setCursorLocation(m_cursorLocation);
    recordset->Open(commandText, shared_from_this());
    return recordset;
}

void Connection::inOneGo(const std::function<void()> &work)
{
    openSession()->call(work);
}

bool Connection::isCancelWanted()
{
    return DriverThread::isCancelWanted();
}

void Connection::BeginTrans()
{
    openSession()->call([session = m_session] { session->beginTransaction(); });
}

void Connection::CommitTrans()
{
    openSession()->call([session = m_session] { session->endTransaction(SQL_COMMIT); });
    m_hasOpenWork = false;
}

void Connection::RollbackTrans()
{
    openSession()->call([session = m_session] { session->endTransaction(SQL_ROLLBACK); });
    m_hasOpenWork = false;
}

qint64 Connection::rowsAffected() const
{
    return State() == adStateOpen ? m_session->rowsAffected() : -1;
}

bool Connection::definitionsCommit() const
{
    return m_session && m_session->abilities().definitionsCommit;
}
