#pragma once

#include "platform/FileHandle.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

/// Writes a file from its front or on from its end, through a buffer. Every write and the close
/// are checked, so a full device is told of.
class TextFileWriter
{
public:
    enum class Mode { Replace, Append };

    /// Opens the file, creating it if it is missing.
    /// @throws RuntimeError of fileErrors.h, as do write() and close()
    TextFileWriter(const QString &path, Mode mode);
    /// Writes what is left and closes, when close() was not called; what goes wrong then stays
    /// unknown.
    ~TextFileWriter();
    TextFileWriter(const TextFileWriter &) = delete;
    TextFileWriter &operator=(const TextFileWriter &) = delete;

    void write(QByteArrayView bytes);
    void close();

private:
    void writeBuffer();

    FileHandle m_file;
    QByteArray m_buffer;
    qsizetype m_used = 0;
};
