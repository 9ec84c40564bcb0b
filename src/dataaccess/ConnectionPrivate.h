#pragma once

#include "dataaccess/dataAccessTypes.h"
#include "dataaccess/odbc/OdbcSession.h"
#include "platform/RuntimeError.h"

#include <memory>

/// The state of a Connection, which recordsets and commands on it share.
class ConnectionPrivate
{
public:
    /// @throws RuntimeError 3704 while closed
    OdbcSession &openSession() const
    {
        if (!session)
            throw RuntimeError(ErrorNumber::ObjectClosed);
        return *session;
    }

    CursorLocationEnum cursorLocation = adUseServer;
    std::shared_ptr<OdbcSession> session; ///< null while closed
};
