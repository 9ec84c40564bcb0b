#pragma once

#include <QByteArrayView>
#include <QString>

/// Writes a file that takes the place of @p path only when all of it has reached the disk: whatever
/// goes wrong before, the file that was there stays whole. A device or a pipe is written to
/// instead.
/// @throws RuntimeError of fileErrors.h
void replaceFile(const QString &path, QByteArrayView contents);
