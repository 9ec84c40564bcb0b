#include "platform/files.h"

#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>

using namespace Qt::StringLiterals;

namespace {

/// @returns whether it is done; it is not when no new file can take the place of the one there
bool putNewFile(const QString &path, QByteArrayView contents)
{
    QSaveFile file(path);
    errno = 0;
    if (file.open(QIODevice::WriteOnly) &&
        file.write(contents.data(), contents.size()) == contents.size() && file.commit())
        return true;
    const RuntimeError error = fileError(file, FileUse::Write);
    if (error.number == ErrorNumber::DiskFull || !QFileInfo(path).isFile())
        throw error;
    return false;
}

bool hasFurtherNames(const QString &path)
{
    std::error_code failure;
    return std::filesystem::hard_link_count(QFileInfo(path).filesystemFilePath(), failure) > 1 &&
           !failure;
}

/// Writes at a place of an unbuffered file, onto the disk: some file systems find out late that
/// they have no room. @param written  becomes the number of bytes that the file has taken
bool writeAt(QFile &file, qint64 place, QByteArrayView bytes, qint64 &written)
{
    errno = 0;
    written = file.seek(place) ? std::max<qint64>(0, file.write(bytes.data(), bytes.size())) : 0;
    return written == bytes.size() && flushToDisk(file);
}

void writeInPlace(const QString &path, QByteArrayView contents)
{
    QFile file(path);
    errno = 0;
    if (!file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly | QIODevice::Unbuffered))
        throw fileError(file, FileUse::Write);
    const qint64 oldSize = file.size();
    const QByteArray old = file.read(std::min<qint64>(oldSize, contents.size()));
    if (old.size() < std::min<qint64>(oldSize, contents.size()))
        throw fileError(file, FileUse::Read);

    // What goes beyond the file's end comes first: it does no harm if there is no room for it.
    qint64 added = 0;
    qint64 replaced = 0;
    if (writeAt(file, old.size(), contents.sliced(old.size()), added) &&
        writeAt(file, 0, contents.first(old.size()), replaced) && file.resize(contents.size()))
        return;
    RuntimeError error = fileError(file, FileUse::Write);
    if (!writeAt(file, 0, QByteArrayView(old).first(replaced), replaced) || !file.resize(oldSize))
        error = RuntimeError(error.number, error.description + u"\r\n"_s + path +
                                               u" does not hold any more what it held."_s);
    throw error;
}

} // namespace

void replaceFile(const QString &path, QByteArrayView contents)
{
    const QFileInfo target(path);
    if (target.exists() && !target.isFile() && !target.isDir()) {
        FileWriter device(path, FileWriter::Mode::Replace);
        device.write(contents);
        device.close();
        return;
    }
    if (hasFurtherNames(path) || !putNewFile(path, contents))
        writeInPlace(path, contents);
}
