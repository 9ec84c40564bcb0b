#include "dataaccess/sandbox/FileLock.h"

#include "platform/RuntimeError.h"

#include <QDeadlineTimer>
#include <QFile>

#include <cerrno>
#include <cstring>
#include <thread>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

[[noreturn]] void failOn(const QString &path)
{
    throw RuntimeError(ErrorNumber::PathFileAccessError,
                       u"Cannot lock %1: %2"_s.arg(path, QString::fromLocal8Bit(strerror(errno))));
}

} // namespace

FileLock::~FileLock()
{
    unlock();
}

bool FileLock::lock(const QString &path, Mode mode, std::chrono::milliseconds longest)
{
    unlock();
    m_file = ::open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (m_file < 0)
        failOn(path);

    const QDeadlineTimer deadline(longest);
    const int operation = (mode == Mode::Shared ? LOCK_SH : LOCK_EX) | LOCK_NB;
    while (::flock(m_file, operation) != 0) {
        if (errno != EWOULDBLOCK && errno != EINTR)
            failOn(path);
        if (deadline.hasExpired()) {
            unlock();
            return false;
        }
        std::this_thread::sleep_for(5ms);
    }
    return true;
}

void FileLock::unlock()
{
    if (m_file >= 0)
        ::close(std::exchange(m_file, -1));
}
