#pragma once

#include <QByteArrayView>
#include <QFile>
#include <QString>

/// Writes a file from its front or on from its end. Every write and the close are checked, so a
/// full device is told of. What was written before a failure stays in the file.
class FileWriter
{
public:
    enum class Mode { Replace, Append };

    /// Opens the file, creating it if it is missing, with @p ofNew as its permissions if given.
    /// @throws RuntimeError of fileAccess.h, as do the others
    FileWriter(const QString &path, Mode mode, QFile::Permissions ofNew = {});

    void write(QByteArrayView bytes);
    /// Writes what is left. Without this call it is written in the end all the same, but what goes
    /// wrong then stays unknown.
    void close();

private:
    QFile m_file;
};
