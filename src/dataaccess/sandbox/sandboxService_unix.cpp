#include "dataaccess/sandbox/Sandbox.h"

#include "dataaccess/sandbox/SandboxServer.h"
#include "dataaccess/text/connectionString.h"
#include "platform/RuntimeError.h"

#include <QDir>
#include <QFile>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

// The driver as the driver manager knows it, or its file when it was installed without being made
// known.
QString serverDriver()
{
    if (const QString name = installedDriver(u"MariaDB"); !name.isEmpty())
        return inBraces(name);
    for (const QString &library : {u"/usr/lib"_s, u"/usr/lib64"_s, u"/usr/local/lib"_s}) {
        QStringList folders = {library, library + u"/odbc"_s};
        for (const QString &part : QDir(library).entryList({u"*-linux-*"_s}, QDir::Dirs))
            folders.append(library + u'/' + part + u"/odbc"_s);
        for (const QString &folder : std::as_const(folders)) {
            QString file = folder + u"/libmaodbc.so"_s;
            if (QFile::exists(file))
                return file;
        }
    }
    throw RuntimeError(ErrorNumber::ProviderNotFound,
                       u"The sandbox needs MariaDB's ODBC driver. Install the package "
                       "odbc-mariadb, for example with: sudo apt install odbc-mariadb"_s);
}

} // namespace

SandboxService sandboxService(const ProviderProgress &progress)
{
    const QString driver = serverDriver();
    if (const QString socket = namedSandboxSocket(); !socket.isEmpty())
        return {driver, socket, nullptr};
    const auto server = std::make_shared<SandboxServer>(SandboxFolder::ofUser(), progress);
    return {driver, server->socketPath(), server};
}
