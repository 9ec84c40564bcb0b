#include "dataaccess/sandbox/Sandbox.h"

#include "dataaccess/sandbox/sandboxDialect.h"
#include "dataaccess/text/connectionString.h"

using namespace Qt::StringLiterals;

namespace {

QString valueOf(const ConnectionString &items, QStringView name, QStringView otherName)
{
    return items.value(items.contains(name) ? name : otherName);
}

// The sample tables, as the account has to name them.
QString hintFor(const QString &account)
{
    const QString tables = u"Sandbox tables: %1emp, %1dept, %1salgrade, %1sales"_s;
    return tables.arg(account == "scott"_L1 ? QString() : u"scott."_s);
}

} // namespace

bool isSandbox(const ConnectionString &connectionString)
{
    return connectionString.value(u"Provider").compare("OrbekSandbox"_L1, Qt::CaseInsensitive) == 0;
}

ProviderSession openSandbox(const ConnectionString &connectionString,
                            const ProviderProgress &progress)
{
    // The server tells names in different letter case apart; users of this program do not.
    const QString user = valueOf(connectionString, u"User ID", u"UID").toLower();
    const QString password = valueOf(connectionString, u"Password", u"PWD");

    const SandboxService service = sandboxService(progress);
    const QString odbc =
        u"DRIVER=%1;SOCKET=%2;DATABASE=%3;UID=%4;PWD=%5;CHARSET=utf8mb4;NO_PROMPT=1;"
        "CONN_TIMEOUT=15"_s.arg(service.driver, inBraces(service.socketPath), inBraces(user),
                                inBraces(user), inBraces(password));
    return {odbc, service.lifetime, adaptToServer, hintFor(user)};
}
