#include "dataaccess/sandbox/SandboxServer.h"

#include "dataaccess/sandbox/serverProgram.h"
#include "platform/RuntimeError.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QScopeGuard>

#include <chrono>
#include <thread>

#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// Another program may be making the database, or the last server may be writing out its data; a
// server that was killed repairs its data before it answers.
constexpr auto longestWait = 180s;
constexpr auto longestAnswer = 15s;
// What nobody notices.
constexpr auto moment = 250ms;

int openFolder(const SandboxFolder &folder)
{
    return ::open(QFile::encodeName(folder.path()).constData(), O_PATH | O_DIRECTORY | O_CLOEXEC);
}

// Through the open folder, as its own path may be too long for a socket's address.
QByteArray socketIn(int folder)
{
    return "/proc/self/fd/" + QByteArray::number(folder) + "/socket";
}

QString logPath(const SandboxFolder &folder)
{
    return folder.file(u"server.log"_s);
}

[[noreturn]] void failWithLog(const SandboxFolder &folder, const QString &what)
{
    QFile log(logPath(folder));
    const QByteArray lines = log.open(QIODevice::ReadOnly) ? log.readAll() : QByteArray();
    throw RuntimeError(ErrorNumber::ProviderFailed, what + u'\n' + sandboxErrorLines(lines));
}

// Makes the database if need be and starts its server, which holds the lock from then on.
void start(const SandboxFolder &folder, const FileLock &lock, const ProviderProgress &tell)
{
    const QString program = sandboxServerProgram();
    if (!QDir(folder.dataPath()).exists()) {
        tell(u"Making the sandbox's database; this happens once and takes a few seconds…"_s);
        createSandboxData(folder, lock);
    }
    tell(u"Starting the sandbox's server…"_s);
    for (const QString &left : {logPath(folder), folder.file(u"socket"_s)})
        QFile::remove(left);
    superviseServer(folder, lock,
                    QStringList{program} + sandboxServerOptions(u"./data"_s) +
                        sandboxServingOptions());
}

} // namespace

SandboxServer::SandboxServer(const SandboxFolder &folder, const ProviderProgress &progress)
{
    const ProviderProgress tell = progress ? progress : [](const QString &) {};
    folder.make();
    const QString life = folder.file(u"life.lock"_s);
    if (!m_life.lock(life, FileLock::Mode::Shared, moment)) {
        tell(u"Waiting for the sandbox's last server to end…"_s);
        if (!m_life.lock(life, FileLock::Mode::Shared, longestWait))
            failWithLog(folder, u"The sandbox's server is being stopped and does not end."_s);
    }
    m_folder = openFolder(folder);
    auto closeFolder = qScopeGuard([this] { ::close(m_folder); });
    attach(folder, tell);
    closeFolder.dismiss();
}

SandboxServer::~SandboxServer()
{
    ::close(m_folder);
}

void SandboxServer::attach(const SandboxFolder &folder, const ProviderProgress &tell)
{
    enum { Nothing, Wait, Start } told = Nothing;
    const QDeadlineTimer unnoticed(moment);
    const QDeadlineTimer deadline(longestWait);
    while (true) {
        const ServerAnswer answer =
            serverAnswer(socketIn(m_folder).constData(), told == Nothing ? moment : longestAnswer);
        if (answer == ServerAnswer::Greeting)
            return;
        FileLock lock;
        if (lock.lock(folder.file(u"server.lock"_s), FileLock::Mode::Exclusive, 0ms)) {
            if (told == Start)
                failWithLog(folder, u"The sandbox's server could not be started."_s);
            start(folder, lock, tell);
            told = Start;
        } else if ((answer == ServerAnswer::Silence && told != Nothing) || deadline.hasExpired()) {
            failWithLog(folder, u"The sandbox's server does not answer."_s);
        } else if (told == Nothing && unnoticed.hasExpired()) {
            tell(u"Waiting for the sandbox's server…"_s);
            told = Wait;
        }
        std::this_thread::sleep_for(5ms);
    }
}

QString SandboxServer::socketPath() const
{
    return QString::fromLatin1(socketIn(m_folder));
}

qint64 SandboxServer::processId(const SandboxFolder &folder)
{
    const int opened = openFolder(folder);
    const int link = connectToServer(socketIn(opened).constData());
    ucred peer = {};
    socklen_t size = sizeof peer;
    ::getsockopt(link, SOL_SOCKET, SO_PEERCRED, &peer, &size);
    ::close(link);
    ::close(opened);
    return peer.pid;
}
