#include "dataaccess/sandbox/Sandbox.h"

#include "dataaccess/connectionString.h"
#include "dataaccess/odbc/driverAdvice.h"
#include "dataaccess/odbc/installedDrivers.h"
#include "dataaccess/sandbox/SandboxAdapter.h"
#include "platform/RuntimeError.h"

#include <QDir>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

SandboxProgress &progressListener()
{
    static SandboxProgress listener;
    return listener;
}

QString valueOf(const ConnectionString &items, QStringView name, QStringView otherName)
{
    return items.value(items.contains(name) ? name : otherName);
}

// The driver as the driver manager knows it, or its file when it was installed without being made
// known.
QString serverDriver()
{
    for (const QString &name : installedDrivers()) {
        if (name.contains("MariaDB"_L1, Qt::CaseInsensitive))
            return inBraces(name);
    }
    for (const QString &library : {u"/usr/lib"_s, u"/usr/lib64"_s, u"/usr/local/lib"_s}) {
        QStringList folders = {library, library + u"/odbc"_s};
        for (const QString &part : QDir(library).entryList({u"*-linux-*"_s}, QDir::Dirs))
            folders.append(library + u'/' + part + u"/odbc"_s);
        for (const QString &folder : std::as_const(folders)) {
            const QString file = folder + u"/libmaodbc.so"_s;
            if (QFile::exists(file))
                return file;
        }
    }
    throw RuntimeError(ErrorNumber::ProviderNotFound,
                       u"The sandbox needs MariaDB's ODBC driver. "_s + mariaDbDriverAdvice());
}

// The server tells names in different letter case apart; users of this program do not.
QString accountOf(const ConnectionString &items)
{
    return valueOf(items, u"User ID", u"UID").toLower();
}

} // namespace

bool isSandbox(const ConnectionString &connectionString)
{
    return connectionString.value(u"Provider").compare("OrbekSandbox"_L1, Qt::CaseInsensitive) == 0;
}

ProviderSession openSandbox(const ConnectionString &connectionString)
{
    const QString user = accountOf(connectionString);
    const QString password = valueOf(connectionString, u"Password", u"PWD");

    const QString driver = serverDriver();

    const auto server =
        std::make_shared<SandboxServer>(SandboxFolder::ofUser(), progressListener());
    const QString odbc =
        u"DRIVER=%1;SOCKET=%2;DATABASE=%3;UID=%4;PWD=%5;CHARSET=utf8mb4;NO_PROMPT=1;"
        "CONN_TIMEOUT=15"_s.arg(driver, inBraces(server->socketPath()), inBraces(user),
                                inBraces(user), inBraces(password));
    return {odbc, server, std::make_unique<SandboxAdapter>()};
}

void setSandboxProgress(SandboxProgress progress)
{
    progressListener() = std::move(progress);
}

QStringList sandboxTables(const ConnectionString &connectionString)
{
    if (!isSandbox(connectionString))
        return {};
    QStringList tables{u"emp"_s, u"dept"_s, u"salgrade"_s, u"sales"_s};
    if (accountOf(connectionString) != "scott"_L1) {
        for (QString &table : tables)
            table.prepend("scott."_L1);
    }
    return tables;
}
