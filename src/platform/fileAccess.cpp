#include "platform/files.h"

#include <QDir>
#include <QFileInfo>

#include <cerrno>

using namespace Qt::StringLiterals;

namespace {

int fileErrorNumber(int osError, const QString &path, FileUse use)
{
    switch (osError) {
    case ENOENT:
    case ENOTDIR: {
        const bool folderThere = QFileInfo(QFileInfo(path).path()).isDir();
        return folderThere ? ErrorNumber::FileNotFound : ErrorNumber::PathNotFound;
    }
    case EACCES:
        return use == FileUse::Write ? ErrorNumber::PathFileAccessError
                                     : ErrorNumber::PermissionDenied;
    case EPERM:
    case EBUSY:
    case ETXTBSY:
    case EAGAIN:
        return ErrorNumber::PermissionDenied;
    case ENOSPC:
    case EFBIG:
#ifdef EDQUOT
    case EDQUOT:
#endif
        return ErrorNumber::DiskFull;
    case ENOMEM:
        return ErrorNumber::OutOfMemory;
    case EIO:
    case ENXIO:
    case ENODEV:
    case EPIPE:
        return ErrorNumber::DeviceIoError;
    default:
        return ErrorNumber::PathFileAccessError;
    }
}

/// What the operation that has just failed left in errno. On Windows the toolkit leaves nothing,
/// nor does it where it refuses a file by itself: then, what is in the way.
int systemError(const QFileDevice &file, FileUse use)
{
    if (file.error() == QFileDevice::ResourceError)
        return ENOSPC;
    if (errno != 0)
        return errno;
    const QFileInfo info(file.fileName());
    if (info.isDir())
        return EISDIR;
    const bool canCreate = use == FileUse::Write && QFileInfo(info.path()).isDir();
    return info.exists() || canCreate ? EACCES : ENOENT;
}

} // namespace

RuntimeError fileError(int osError, const QString &path, FileUse use)
{
    return RuntimeError(fileErrorNumber(osError, path, use));
}

RuntimeError fileError(const QFileDevice &file, FileUse use)
{
    return fileError(systemError(file, use), file.fileName(), use);
}

void requireOrdinaryFile(const QString &path)
{
    const QFileInfo info(path);
    if (info.exists() && !info.isFile() && !info.isDir())
        throw RuntimeError(ErrorNumber::PathFileAccessError,
                           path + u" is a device or a pipe and not an ordinary file."_s);
}

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
