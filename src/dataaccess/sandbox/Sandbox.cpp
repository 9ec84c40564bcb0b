#include "dataaccess/sandbox/Sandbox.h"

#include "dataaccess/connectionString.h"
#include "dataaccess/sandbox/SandboxAdapter.h"

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

// A value of a connection string, enclosed so that any character may stand in it.
QString braced(QString value)
{
    return u'{' + value.replace(u'}', u"}}"_s) + u'}';
}

} // namespace

std::unique_ptr<ProviderSession> openSandbox(const ConnectionString &connectionString)
{
    // The server tells names in different letter case apart; users of this program do not.
    const QString user = valueOf(connectionString, u"User ID", u"UID").toLower();
    const QString password = valueOf(connectionString, u"Password", u"PWD");

    auto session = std::make_unique<ProviderSession>();
    const auto server =
        std::make_shared<SandboxServer>(SandboxFolder::ofUser(), progressListener());
    session->lifetime = server;
    session->odbcConnectionString =
        u"DRIVER={MariaDB Unicode};SOCKET=%1;DATABASE=%2;UID=%3;PWD=%4;CHARSET=utf8mb4;NO_PROMPT=1"_s
            .arg(braced(server->socketPath()), braced(user), braced(user), braced(password));
    session->adapter = std::make_unique<SandboxAdapter>();
    return session;
}

void setSandboxProgress(SandboxProgress progress)
{
    progressListener() = std::move(progress);
}
