#pragma once

#include <QFile>

/// Files and folders that their owner alone can open. On Windows the user's folders are so anyway.

/// Permissions to make such a file with.
inline constexpr QFile::Permissions ownerFile = QFile::ReadOwner | QFile::WriteOwner;

/// Takes from everybody else what they may do with a file or a folder. @returns whether that is so
bool shutToOthers(const QString &path);

/// Makes such a folder, below others that may be missing too, or shuts the one that is there.
/// @returns whether it is there and shut
bool makeOwnerFolder(const QString &path);
