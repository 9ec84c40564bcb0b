#include "dataaccess/sandbox/serverProgram.h"

#include "platform/RuntimeError.h"

#include <QFile>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <vector>

#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

int connectToServer(const char *path)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, path, sizeof address.sun_path - 1);
    const int link = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (::connect(link, reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0)
        return link;
    ::close(link);
    return -1;
}

ServerAnswer serverAnswer(const char *path, std::chrono::milliseconds longest)
{
    const int link = connectToServer(path);
    if (link < 0)
        return ServerAnswer::Refusal;
    pollfd wait = {link, POLLIN, 0};
    char first = 0;
    ServerAnswer answer = ServerAnswer::Silence;
    if (::poll(&wait, 1, static_cast<int>(longest.count())) > 0)
        answer = ::read(link, &first, 1) == 1 ? ServerAnswer::Greeting : ServerAnswer::Refusal;
    ::close(link);
    return answer;
}

namespace {

constexpr int lockNumber = 3; // the first after the standard streams

// What follows runs in a copy of a program that may have had several threads: nothing here may use
// memory of the heap, or anything else that another thread may just have been changing.

// Shuts off all that the copy has of its original but the lock: its files, its terminal, what it
// does on signals.
void detach(const char *folder, int lock)
{
    ::setsid();
    if (::chdir(folder) != 0 || ::dup2(lock, lockNumber) < 0)
        ::_exit(1);
    ::fcntl(lockNumber, F_SETFD, 0); // dup2() does nothing to a file that has this number already
    ::close_range(lockNumber + 1, ~0U, 0);
    const int nothing = ::open("/dev/null", O_RDWR);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        ::dup2(nothing, stream);
    ::close(nothing);
    for (const int signal : {SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGCHLD, SIGPIPE})
        ::signal(signal, SIG_DFL);
    ::umask(077);
}

pid_t startServer(char *const *command)
{
    const pid_t parent = ::getpid();
    const pid_t server = ::fork();
    if (server != 0)
        return server;
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() == parent)
        ::execv(command[0], command);
    ::_exit(1);
}

bool endsWithin(pid_t server, std::chrono::milliseconds longest)
{
    for (auto left = longest; left > 0ms; left -= 20ms) {
        if (::waitpid(server, nullptr, WNOHANG) != 0)
            return true;
        ::poll(nullptr, 0, 20);
    }
    return false;
}

// Until this process has taken note of the server's end, the server's number is nobody else's.
[[noreturn]] void supervise(const char *folder, int lock, char *const *command)
{
    detach(folder, lock);
    ::prctl(PR_SET_NAME, "querna-sandbox");
    const pid_t server = startServer(command);
    ::close(lockNumber);
    if (server < 0)
        ::_exit(1);
    // At the end of a desktop's session, too, the server has to write out its data first.
    for (const int signal : {SIGHUP, SIGINT, SIGQUIT, SIGTERM})
        ::signal(signal, SIG_IGN);

    const int life = ::open("life.lock", O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    while (::flock(life, LOCK_EX) != 0 && errno == EINTR) {
    }
    // A server told to end while it is still starting may never do so. Being killed costs it
    // nothing: its data survives that, and nobody has used it.
    if (serverAnswer("socket", 15s) == ServerAnswer::Greeting) {
        ::kill(server, SIGTERM);
        if (endsWithin(server, 60s))
            ::_exit(0);
    }
    ::kill(server, SIGKILL);
    ::waitpid(server, nullptr, 0);
    ::_exit(0);
}

} // namespace

void superviseServer(const SandboxFolder &folder, const FileLock &lock, const QStringList &command)
{
    const QByteArray path = QFile::encodeName(folder.path());
    QList<QByteArray> words{"/usr/bin/env", "UMASK=0600", "UMASK_DIR=0700"}; // heeded by the server
    for (const QString &word : command)
        words.append(QFile::encodeName(word));
    std::vector<char *> arguments;
    for (QByteArray &word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);

    // Of two generations, so that nobody here has to wait for the second one's end.
    const pid_t child = ::fork();
    if (child == 0) {
        if (::fork() == 0)
            supervise(path.constData(), lock.descriptor(), arguments.data());
        ::_exit(0);
    }
    if (child < 0) {
        throw RuntimeError(ErrorNumber::ProviderFailed,
                           u"The sandbox's server could not be started: %1"_s.arg(
                               QString::fromLocal8Bit(strerror(errno))));
    }
    ::waitpid(child, nullptr, 0);
}
