#pragma once

#include "platform/ByteBuffer.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QFile>
#include <QString>

#include <optional>

/// Reads an ordinary file, as a whole or line by line, a block of it at a time.
class FileReader
{
public:
    /// @throws RuntimeError of fileAccess.h, as do the others
    explicit FileReader(const QString &path);

    /// Everything, also of a file that does not know its size.
    /// @throws RuntimeError 7 when it is more than 1 GB
    QByteArray readAll();

    /// The next line, without its line feed and the carriage return before that; nothing at the
    /// end of the file. It is valid until the next one is read.
    std::optional<QByteArrayView> nextLine();

private:
    /// Reads the next block. @returns whether there is one
    bool fill();
    /// What has been read and not been given yet, up to the next line feed.
    QByteArrayView takePiece(bool &endsLine);

    QFile m_file;
    QByteArray m_block;
    ByteBuffer m_line; ///< one that lies in more than one block
    qsizetype m_position = 0;
    qsizetype m_filled = 0;
};
