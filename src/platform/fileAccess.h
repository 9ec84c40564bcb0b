#pragma once

#include "platform/RuntimeError.h"

#include <QFile>
#include <QString>

/// What the system does with files and folders: how it fails, whom it lets open them, what it has
/// written.

/// What a file is opened for.
enum class FileUse { Read, Write };

/// The run-time error that an operating system's failure with a file amounts to:
/// 53 no such file, 76 no such folder, 75 a file that may not be written (or is a folder), 70 one
/// that may not be read or is locked, 61 no room, 7 no memory, 57 a failing device.
/// @param osError  the value of errno after the failed operation, 0 when it was not the system
///                 that refused
RuntimeError fileError(int osError, const QString &path, FileUse use);

/// The same for the operation on @p file that has just failed; errno has to be as that left it.
RuntimeError fileError(const QFileDevice &file, FileUse use);

/// Opening a pipe would wait for somebody at its other end, and a device may never end.
/// @throws RuntimeError 75 when @p path is there and is neither a file nor a folder; it says so
void requireOrdinaryFile(const QString &path);

/// Permissions to make a file with that its owner alone can open. On Windows the user's folders are
/// so anyway.
inline constexpr QFile::Permissions ownerFile = QFile::ReadOwner | QFile::WriteOwner;

/// Takes from everybody else what they may do with a file or a folder. @returns whether that is so
bool shutToOthers(const QString &path);

/// Makes a folder that its owner alone can open, below others that may be missing too, or shuts
/// the one that is there. @returns whether it is there and shut
bool makeOwnerFolder(const QString &path);

/// Waits until the disk has what was written to an unbuffered file.
/// @returns whether it has; errno says why not
bool flushToDisk(QFile &file);
