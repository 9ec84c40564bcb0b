#include "platform/applicationFolder.h"

#include <QCoreApplication>

namespace {

QString &replacedFolder()
{
    static QString folder;
    return folder;
}

} // namespace

QString applicationFolder()
{
    return replacedFolder().isEmpty() ? QCoreApplication::applicationDirPath() : replacedFolder();
}

QString applicationFile(const QString &fileName)
{
    return applicationFolder() + u'/' + fileName;
}

void setApplicationFolder(const QString &folder)
{
    replacedFolder() = folder;
}
