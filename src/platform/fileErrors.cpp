#include "platform/fileErrors.h"

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

} // namespace

RuntimeError fileError(int osError, const QString &path, FileUse use)
{
    return RuntimeError(fileErrorNumber(osError, path, use));
}

RuntimeError fileError(const QFileDevice &file, FileUse use)
{
    const bool isFull = file.error() == QFileDevice::ResourceError;
    return fileError(isFull ? ENOSPC : errno, file.fileName(), use);
}

void requireOrdinaryFile(const QString &path)
{
    const QFileInfo info(path);
    if (info.exists() && !info.isFile() && !info.isDir())
        throw RuntimeError(ErrorNumber::PathFileAccessError,
                           path + u" is a device or a pipe and not an ordinary file."_s);
}
