#include "dataaccess/sandbox/Sandbox.h"

#include "dataaccess/text/connectionString.h"
#include "platform/RuntimeError.h"

using namespace Qt::StringLiterals;

SandboxService sandboxService(const ProviderProgress &)
{
    const QString socket = namedSandboxSocket();
    if (socket.isEmpty()) {
        throw RuntimeError(ErrorNumber::ProviderNotFound,
                           u"The sandbox runs on Linux only: log on to a data source instead, for "
                           "example with DSN=name;Uid=user;Pwd=password;"_s);
    }
    const QString driver = installedDriver(u"MariaDB");
    if (driver.isEmpty()) {
        throw RuntimeError(ErrorNumber::ProviderNotFound,
                           u"The sandbox needs MariaDB's ODBC driver for 64-bit Windows."_s);
    }
    return {inBraces(driver), socket, nullptr};
}
