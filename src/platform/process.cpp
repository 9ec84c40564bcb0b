#include "platform/process.h"

#include "platform/RuntimeError.h"

#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

#include <cstdlib>
#include <utility>

namespace {

std::function<void(int)> &replacedEnd()
{
    static std::function<void(int)> end;
    return end;
}

void startDetached(const QString &program, const QStringList &arguments)
{
    if (!QProcess::startDetached(program, arguments))
        throw RuntimeError(ErrorNumber::InvalidProcedureCall);
}

} // namespace

void startProgram(const QString &program, const QStringList &arguments)
{
    if (!QFileInfo::exists(program))
        throw RuntimeError(ErrorNumber::FileNotFound);
    startDetached(program, arguments);
}

void openPage(const QString &address)
{
#if defined(Q_OS_WIN)
    const QString opener = QStringLiteral("explorer");
#elif defined(Q_OS_MACOS)
    const QString opener = QStringLiteral("open");
#else
    const QString opener = QStringLiteral("xdg-open");
#endif
    const QString program = QStandardPaths::findExecutable(opener);
    if (program.isEmpty())
        throw RuntimeError(ErrorNumber::FileNotFound);
    startDetached(program, {address});
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
