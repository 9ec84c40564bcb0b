#include "dataaccess/sandbox/Sandbox.h"

#include "dataaccess/connectionString.h"
#include "dataaccess/sandbox/SandboxAdapter.h"
#include "dataaccess/sandbox/sandboxService.h"

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

    const SandboxService service = sandboxService(progressListener());
    const QString odbc =
        u"DRIVER=%1;SOCKET=%2;DATABASE=%3;UID=%4;PWD=%5;CHARSET=utf8mb4;NO_PROMPT=1;"
        "CONN_TIMEOUT=15"_s.arg(service.driver, inBraces(service.socketPath), inBraces(user),
                                inBraces(user), inBraces(password));
    return {odbc, service.lifetime, std::make_unique<SandboxAdapter>()};
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
