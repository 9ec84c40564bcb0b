#include "platform/files.h"

#include <cerrno>

FileWriter::FileWriter(const QString &path, Mode mode, QFile::Permissions ofNew)
    : m_file(path)
{
    const QIODevice::OpenMode how =
        QIODevice::WriteOnly | (mode == Mode::Append ? QIODevice::Append : QIODevice::Truncate);
    errno = 0;
    if (!(ofNew ? m_file.open(how, ofNew) : m_file.open(how)))
        throw fileError(m_file, FileUse::Write);
}

void FileWriter::write(QByteArrayView bytes)
{
    errno = 0;
    if (m_file.write(bytes.data(), bytes.size()) != bytes.size())
        throw fileError(m_file, FileUse::Write);
}

void FileWriter::close()
{
    errno = 0;
    m_file.close();
    if (m_file.error() != QFileDevice::NoError)
        throw fileError(m_file, FileUse::Write);
}
