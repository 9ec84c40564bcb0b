#pragma once

#include <QByteArrayView>
#include <QString>

/// Gives @p path new contents: with a new file, which takes its place when all of it has reached
/// the disk. Whatever goes wrong before, the file that was there stays whole.
///
/// Where its folder lets no file take its place, or the file has further names (hard links), it is
/// written in place. The room that it needs is taken first, and what it held is put back when
/// something goes wrong later. A device or a pipe is written to.
/// @throws RuntimeError of fileAccess.h; its text says so if the file lost what it held
void replaceFile(const QString &path, QByteArrayView contents);
