#include "support/testFiles.h"

#include <QFile>

#include <sys/stat.h>

int modeOf(const QString &path)
{
    struct stat status = {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return -1;
    return static_cast<int>(status.st_mode & 07777);
}

void makePipe(const QString &path)
{
    if (::mkfifo(QFile::encodeName(path).constData(), 0600) != 0)
        qFatal("%s cannot be made", qPrintable(path));
}

QString fileInVariable(const char *variable, const QString &usual)
{
    qputenv(variable, QFile::encodeName(usual));
    return usual;
}

void keepSettingsIn(const QString &folder)
{
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(folder + QLatin1StringView("/settings")));
    qputenv("XDG_STATE_HOME", QFile::encodeName(folder + QLatin1StringView("/state")));
}
