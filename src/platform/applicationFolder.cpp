#include "platform/applicationFolder.h"

#include <QCoreApplication>
#include <QDir>

namespace {

QString replacedFolder;

} // namespace

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
