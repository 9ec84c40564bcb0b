#include "dataaccess/sandbox/SandboxServer.h"

#include "dataaccess/sandbox/sandboxSetup.h"
#include "platform/RuntimeError.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSaveFile>

#include <algorithm>
#include <chrono>
#include <thread>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// Another program may be making the database, or the last server may be writing out its data.
constexpr auto longestWait = 180s;
// A server that was killed repairs its data before it answers.
constexpr auto longestStart = 60s;
constexpr auto longestAnswer = 15s;
constexpr auto longestMoment = 2s;

QByteArray contentsOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// A process that has ended and that its parent has not taken note of yet is a zombie.
bool isAlive(qint64 id)
{
    const QByteArray status = contentsOf(u"/proc/%1/status"_s.arg(id));
    return !status.isEmpty() && !status.contains("State:\tZ") && !status.contains("State:\tX");
}

enum class Answer { Refusal, Silence, Greeting };

// The server speaks first; its first byte shows that it is at work and not merely there.
Answer answerOf(const QString &socketPath)
{
    sockaddr_un address = {};
    const QByteArray path = QFile::encodeName(socketPath);
    if (path.isEmpty() || path.size() >= int(sizeof(address.sun_path)))
        return Answer::Refusal;
    address.sun_family = AF_UNIX;
    std::copy(path.begin(), path.end(), address.sun_path);

    const int link = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    Answer answer = Answer::Refusal;
    if (::connect(link, reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0) {
        pollfd wait = {link, POLLIN, 0};
        char first = 0;
        const int ready = ::poll(&wait, 1, std::chrono::milliseconds(longestAnswer).count());
        if (ready == 0)
            answer = Answer::Silence;
        else if (ready > 0 && ::read(link, &first, 1) == 1)
            answer = Answer::Greeting;
    }
    ::close(link);
    return answer;
}

// A process that leaves this one behind and looks after the server.
void launch(const SandboxFolder &folder, const QStringList &serverCommand)
{
    QProcess process;
    process.setProgram(u"/bin/sh"_s);
    process.setArguments(QStringList{u"-c"_s, QString::fromUtf8(sandboxResource(u"supervise.sh"_s)),
                                     u"querna-sandbox"_s, folder.path(),
                                     QString::fromUtf8(sandboxResource(u"stop.sh"_s))} +
                         serverCommand);
    process.setWorkingDirectory(u"/"_s);
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    if (!process.startDetached()) {
        throw RuntimeError(
            ErrorNumber::ProviderFailed,
            u"The sandbox's server could not be started: %1"_s.arg(process.errorString()));
    }
}

QString logPath(const SandboxFolder &folder)
{
    return folder.file(u"server.log"_s);
}

QString idPath(const SandboxFolder &folder)
{
    return folder.file(u"server.pid"_s);
}

[[noreturn]] void failWithLog(const SandboxFolder &folder, const QString &what)
{
    throw RuntimeError(ErrorNumber::ProviderFailed,
                       what + u'\n' + sandboxErrorLines(contentsOf(logPath(folder))));
}

} // namespace

SandboxServer::SandboxServer(const SandboxFolder &folder, const SandboxProgress &progress)
{
    folder.make();
    if (!m_life.lock(folder.file(u"life.lock"_s), FileLock::Mode::Shared, longestWait))
        failWithLog(folder, u"The sandbox's server is being stopped and does not end."_s);
    FileLock starting;
    if (!starting.lock(folder.file(u"start.lock"_s), FileLock::Mode::Exclusive, longestWait))
        failWithLog(folder, u"Another program is starting the sandbox's server and does not "
                            "get it done."_s);

    if (processId(folder) != 0) {
        m_socket = QFile::decodeName(contentsOf(folder.file(u"server.socket"_s)));
        ensureWaiter(folder);
    } else {
        start(folder, progress);
    }
    awaitAnswer(folder);
}

qint64 SandboxServer::processId(const SandboxFolder &folder)
{
    const qint64 id = contentsOf(idPath(folder)).trimmed().toLongLong();
    if (id <= 0)
        return 0;
    const QByteArray data = "--datadir=" + QFile::encodeName(folder.dataPath());
    // The number may belong to another process by now. A process that is beginning or ending has
    // no command line for a moment, and while it is ending its files are still locked.
    const QDeadlineTimer deadline(longestMoment);
    while (isAlive(id)) {
        const QByteArray command = contentsOf(u"/proc/%1/cmdline"_s.arg(id));
        if (command.split('\0').contains(data))
            return id;
        if (!command.isEmpty() || deadline.hasExpired())
            return 0;
        std::this_thread::sleep_for(1ms);
    }
    return 0;
}

void SandboxServer::start(const SandboxFolder &folder, const SandboxProgress &progress)
{
    const QString program = sandboxServerProgram();
    const auto tell = [&](const QString &text) {
        if (progress)
            progress(text);
    };
    removeUnfinishedSandboxData(folder);
    if (!QDir(folder.dataPath()).exists()) {
        tell(u"Making the sandbox's database; this happens once and takes a few seconds…"_s);
        createSandboxData(folder);
    }
    tell(u"Starting the sandbox's server…"_s);
    updateSandboxData(folder);

    m_socket = folder.socketForServer();
    QSaveFile note(folder.file(u"server.socket"_s));
    if (!note.open(QIODevice::WriteOnly) ||
        !note.setPermissions(QFile::ReadOwner | QFile::WriteOwner) ||
        note.write(QFile::encodeName(m_socket)) < 0 || !note.commit())
        throw RuntimeError(ErrorNumber::PathFileAccessError);
    // What a server that was killed has left.
    for (const QString &left : {m_socket, idPath(folder), logPath(folder)})
        QFile::remove(left);
    launch(folder, QStringList{program} + sandboxServerOptions(folder.dataPath()) +
                       sandboxServingOptions(folder, m_socket));

    const QDeadlineTimer deadline(longestAnswer);
    while (!QFile::exists(idPath(folder)) && !deadline.hasExpired())
        std::this_thread::sleep_for(2ms);
}

void SandboxServer::awaitAnswer(const SandboxFolder &folder)
{
    const QDeadlineTimer deadline(longestStart);
    for (Answer answer = answerOf(m_socket); answer != Answer::Greeting;
         answer = answerOf(m_socket)) {
        if (processId(folder) == 0)
            failWithLog(folder, u"The sandbox's server could not be started."_s);
        if (answer == Answer::Silence || deadline.hasExpired())
            failWithLog(folder, u"The sandbox's server does not answer."_s);
        std::this_thread::sleep_for(5ms);
    }
}

void SandboxServer::ensureWaiter(const SandboxFolder &folder)
{
    FileLock probe;
    if (!probe.lock(folder.file(u"waiter.lock"_s), FileLock::Mode::Exclusive, 0ms))
        return;
    probe.unlock();
    launch(folder, {});
}
