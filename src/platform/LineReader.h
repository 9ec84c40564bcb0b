#pragma once

#include "platform/FileHandle.h"

#include <QByteArray>
#include <QString>

/// Reads a text file line by line, a block of it at a time.
class LineReader
{
public:
    /// @throws RuntimeError of fileErrors.h, as does readLine()
    explicit LineReader(const QString &path);

    /// Puts the next line, without its line feed and the carriage return before that, into
    /// @p line. @returns false at the end of the file
    bool readLine(QByteArray &line);

private:
    bool fill();

    FileHandle m_file;
    QByteArray m_block;
    qsizetype m_position = 0;
    qsizetype m_filled = 0;
};
