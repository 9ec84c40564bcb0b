#include "platform/FileHandle.h"

#include <QFile>

#include <cerrno>

namespace {

std::FILE *openFile(const QString &path, FileHandle::Mode mode)
{
    errno = 0;
#ifdef Q_OS_WIN
    const wchar_t *const flags = mode == FileHandle::Mode::Read      ? L"rb"
                                 : mode == FileHandle::Mode::Replace ? L"wb"
                                                                     : L"ab";
    return _wfopen(reinterpret_cast<const wchar_t *>(path.utf16()), flags);
#else
    const char *const flags = mode == FileHandle::Mode::Read      ? "rbe"
                              : mode == FileHandle::Mode::Replace ? "wbe"
                                                                  : "abe";
    return std::fopen(QFile::encodeName(path).constData(), flags);
#endif
}

} // namespace

FileHandle::FileHandle(const QString &path, Mode mode)
    : m_path(path)
    , m_use(mode == Mode::Read ? FileUse::Read : FileUse::Write)
    , m_file(openFile(path, mode))
{
    if (!m_file)
        fail();
    std::setvbuf(m_file.get(), nullptr, _IONBF, 0);
}

size_t FileHandle::read(char *bytes, size_t size)
{
    const size_t count = std::fread(bytes, 1, size, m_file.get());
    if (count < size && std::ferror(m_file.get()))
        fail();
    return count;
}

void FileHandle::write(const char *bytes, size_t size)
{
    if (std::fwrite(bytes, 1, size, m_file.get()) < size)
        fail();
}

void FileHandle::close()
{
    if (std::fclose(m_file.release()) != 0)
        fail();
}

void FileHandle::fail() const
{
    throw fileError(errno, m_path, m_use);
}
