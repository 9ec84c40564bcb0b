#include "platform/fileErrors.h"

#include <QFileInfo>

#include <cerrno>

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
