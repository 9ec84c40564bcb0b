#include "platform/process.h"

#include "platform/RuntimeError.h"

#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

#include <cstdlib>
#include <utility>

#ifdef Q_OS_LINUX
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

namespace {

std::function<void(int)> &replacedEnd()
{
    static std::function<void(int)> end;
    return end;
}

/// In the environment, because everything behind the program's name is its own business.
constexpr char startWindowVariable[] = "QUERNA_START_WINDOW";
constexpr char maximized[] = "maximized";

void startDetached(const QString &program, const QStringList &arguments, StartWindow window)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QLatin1StringView(startWindowVariable));
    if (window == StartWindow::Maximized)
        environment.insert(QLatin1StringView(startWindowVariable), QLatin1StringView(maximized));
    QProcess process;
    process.setProgram(program);
    process.setArguments(arguments);
    process.setProcessEnvironment(environment);
    keepFilesFromPrograms();
    if (!process.startDetached())
        throw RuntimeError(ErrorNumber::InvalidProcedureCall);
}

} // namespace

void startProgram(const QString &program, const QStringList &arguments, StartWindow window)
{
    if (!QFileInfo::exists(program))
        throw RuntimeError(ErrorNumber::FileNotFound);
    startDetached(program, arguments, window);
}

bool startsMaximized()
{
    return qgetenv(startWindowVariable) == maximized;
}

void openPage(const QString &address)
{
#if defined(Q_OS_WIN)
    const QString opener = u"explorer"_s;
#elif defined(Q_OS_MACOS)
    const QString opener = u"open"_s;
#else
    const QString opener = u"xdg-open"_s;
#endif
    const QString program = QStandardPaths::findExecutable(opener);
    if (program.isEmpty())
        throw RuntimeError(ErrorNumber::FileNotFound);
    startDetached(program, {address}, StartWindow::ByItself);
}

void keepFilesFromPrograms()
{
#ifdef Q_OS_LINUX // elsewhere they stay with who opened them
    ::close_range(STDERR_FILENO + 1, ~0U, CLOSE_RANGE_CLOEXEC);
#endif
}

void endProgram(int exitCode)
{
    if (!replacedEnd())
        std::_Exit(exitCode);
    replacedEnd()(exitCode);
}

void setProgramEnd(std::function<void(int)> end)
{
    replacedEnd() = std::move(end);
}
