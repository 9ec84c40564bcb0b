#include "platform/files.h"
#include "platform/process.h"

#include <QStandardPaths>

#include <unistd.h>

using namespace Qt::StringLiterals;

void reachConsole()
{
    // They do so by themselves.
}

void openPage(const QString &address)
{
#ifdef Q_OS_MACOS
    const QString opener = u"open"_s;
#else
    const QString opener = u"xdg-open"_s;
#endif
    startProgram(QStandardPaths::findExecutable(opener), {address});
}

void keepFilesFromPrograms()
{
#ifdef Q_OS_LINUX // elsewhere they stay with who opened them
    ::close_range(STDERR_FILENO + 1, ~0U, CLOSE_RANGE_CLOEXEC);
#endif
}

bool flushToDisk(QFile &file)
{
    return ::fsync(file.handle()) == 0;
}
