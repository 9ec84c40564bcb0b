#pragma once

#include "platform/ByteBuffer.h"
#include "platform/FileHandle.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <optional>

/// Reads a text file line by line, a block of it at a time.
class LineReader
{
public:
    /// @throws RuntimeError of fileErrors.h, as does nextLine()
    explicit LineReader(const QString &path);

    /// The next line, without its line feed and the carriage return before that; nothing at the
    /// end of the file. It is valid until the next one is read.
    std::optional<QByteArrayView> nextLine();

private:
    bool fill();
    /// What has been read and not been given yet, up to the next line feed.
    QByteArrayView takePiece(bool &endsLine);

    FileHandle m_file;
    QByteArray m_block;
    ByteBuffer m_line; ///< one that lies in more than one block
    qsizetype m_position = 0;
    qsizetype m_filled = 0;
};
