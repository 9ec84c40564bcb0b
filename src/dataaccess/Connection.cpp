#include "dataaccess/Connection.h"

#include "dataaccess/Recordset.h"
#include "dataaccess/odbc/OdbcSession.h"
#include "dataaccess/providers/providers.h"
#include "platform/RuntimeError.h"

#include <utility>

Connection::~Connection()
{
    if (m_session)
        m_session->close();
}

OdbcSession &Connection::openSession() const
{
    if (!m_session)
        throw RuntimeError(ErrorNumber::ObjectClosed);
    return *m_session;
}

std::shared_ptr<OdbcSession> Connection::sessionOf(const std::shared_ptr<Connection> &connection)
{
    if (!connection || !connection->m_session)
        throw RuntimeError(ErrorNumber::InvalidConnection);
    return connection->m_session;
}

void Connection::Open(const QString &connectionString)
{
    if (m_session)
        throw RuntimeError(ErrorNumber::ObjectOpen);
    m_session = std::make_shared<OdbcSession>(openProvider(connectionString));
}

void Connection::Close()
{
    openSession();
    std::exchange(m_session, nullptr)->close();
}

QString Connection::hint() const
{
    return m_session ? m_session->hint() : QString();
}

std::shared_ptr<Recordset> Connection::Execute(const QString &commandText)
{
    openSession();
    auto recordset = std::make_shared<Recordset>();
    recordset->setCursorLocation(m_cursorLocation);
    recordset->Open(commandText, shared_from_this());
    return recordset;
}

void Connection::BeginTrans()
{
    openSession().beginTransaction();
}

void Connection::CommitTrans()
{
    openSession().endTransaction(SQL_COMMIT);
    m_hasOpenWork = false;
}

void Connection::RollbackTrans()
{
    openSession().endTransaction(SQL_ROLLBACK);
    m_hasOpenWork = false;
}

qint64 Connection::rowsAffected() const
{
    return m_session ? m_session->rowsAffected() : -1;
}

bool Connection::definitionsCommit() const
{
    return m_session && m_session->abilities().definitionsCommit;
}
