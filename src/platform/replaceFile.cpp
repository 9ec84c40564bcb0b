#include "platform/replaceFile.h"

#include "platform/TextFileWriter.h"
#include "platform/fileErrors.h"

#include <QFileInfo>
#include <QSaveFile>

#include <cerrno>

namespace {

[[noreturn]] void fail(const QSaveFile &file, const QString &path)
{
    // QSaveFile refuses folders and write-protected files by itself, without a system error.
    int osError = errno;
    if (file.error() == QFileDevice::ResourceError)
        osError = ENOSPC;
    else if (osError == 0)
        osError = EACCES;
    throw fileError(osError, path, FileUse::Write);
}

/// Devices and pipes are written to; a file in their place would be no use to anybody.
void writeThrough(const QString &path, QByteArrayView contents)
{
    TextFileWriter file(path, TextFileWriter::Mode::Replace);
    file.write(contents);
    file.close();
}

} // namespace

void replaceFile(const QString &path, QByteArrayView contents)
{
    const QFileInfo target(path);
    if (target.exists() && !target.isFile() && !target.isDir())
        return writeThrough(path, contents);
    QSaveFile file(path);
    errno = 0;
    if (!file.open(QIODevice::WriteOnly))
        fail(file, path);
    if (file.write(contents.data(), contents.size()) != contents.size() || !file.commit())
        fail(file, path);
}
