#include "platform/ownerOnly.h"

#include <QDir>
#include <QFileInfo>

bool shutToOthers(const QString &path)
{
    constexpr QFile::Permissions others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                                          QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    const QFile::Permissions now = QFile::permissions(path);
    return !(now & others) || QFile::setPermissions(path, now & ~others);
}

bool makeOwnerFolder(const QString &path)
{
    QDir().mkpath(QFileInfo(path).path());
    QDir().mkdir(path, ownerFile | QFile::ExeOwner);
    return QFileInfo(path).isDir() && shutToOthers(path);
}
