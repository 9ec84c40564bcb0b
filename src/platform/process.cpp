#include "platform/process.h"

#include "platform/RuntimeError.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcess>

#include <cstdlib>
#include <utility>

namespace {

std::function<void(int)> replacedEnd;
std::function<void()> lastWork;
QString replacedFolder;

/// In the environment, because everything behind the program's name is its own business.
constexpr char startWindowVariable[] = "QUERNA_START_WINDOW";
constexpr char maximized[] = "maximized";

} // namespace

void startProgram(const QString &program, const QStringList &arguments, StartWindow window)
{
    if (!QFileInfo::exists(program))
        throw RuntimeError(ErrorNumber::FileNotFound);
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

bool startsMaximized()
{
    return qgetenv(startWindowVariable) == maximized;
}

void endProgram(int exitCode)
{
    if (exitCode == 0 && lastWork)
        lastWork();
    if (!replacedEnd)
        std::_Exit(exitCode);
    replacedEnd(exitCode);
}

void setLastWork(std::function<void()> work)
{
    lastWork = std::move(work);
}

void setProgramEnd(std::function<void(int)> end)
{
    replacedEnd = std::move(end);
}

QString applicationFolder()
{
    return QDir::toNativeSeparators(
        replacedFolder.isEmpty() ? QCoreApplication::applicationDirPath() : replacedFolder);
}

QString applicationFile(const QString &fileName)
{
    return applicationFolder() + QDir::separator() + fileName;
}

void setApplicationFolder(const QString &folder)
{
    replacedFolder = folder;
}
