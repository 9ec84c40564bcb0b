#include "dataaccess/Connection.h"

#include "dataaccess/ConnectionPrivate.h"
#include "dataaccess/Recordset.h"
#include "dataaccess/odbc/OdbcSession.h"
#include "dataaccess/providers.h"
#include "platform/RuntimeError.h"

#include <utility>

Connection::Connection()
    : d(std::make_unique<ConnectionPrivate>())
{
}

Connection::~Connection()
{
    if (d->session)
        d->session->close();
}

CursorLocationEnum Connection::CursorLocation() const
{
    return d->cursorLocation;
}

void Connection::setCursorLocation(CursorLocationEnum location)
{
    d->cursorLocation = location;
}

void Connection::Open(const QString &connectionString)
{
    if (d->session)
        throw RuntimeError(ErrorNumber::ObjectOpen);
    d->session = std::make_shared<OdbcSession>(openProvider(connectionString));
}

void Connection::Close()
{
    d->openSession();
    std::exchange(d->session, nullptr)->close();
}

ObjectStateEnum Connection::State() const
{
    return d->session ? adStateOpen : adStateClosed;
}

std::shared_ptr<Recordset> Connection::Execute(const QString &commandText)
{
    d->openSession();
    auto recordset = std::make_shared<Recordset>();
    recordset->setCursorLocation(d->cursorLocation);
    recordset->Open(commandText, shared_from_this());
    return recordset;
}

void Connection::BeginTrans()
{
    d->openSession().beginTransaction();
}

void Connection::CommitTrans()
{
    d->openSession().endTransaction(SQL_COMMIT);
}

void Connection::RollbackTrans()
{
    d->openSession().endTransaction(SQL_ROLLBACK);
}
