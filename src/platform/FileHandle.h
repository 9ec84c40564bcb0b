#pragma once

#include "platform/fileErrors.h"

#include <QString>

#include <cstdio>
#include <memory>

/// An open file of the C library, which tells why an operation failed. Without a buffer of its
/// own: who uses it has one.
class FileHandle
{
public:
    enum class Mode { Read, Replace, Append };

    /// Opens a file, creating it unless it is opened for reading.
    /// @throws RuntimeError as fileError() tells them apart; so do the other operations
    FileHandle(const QString &path, Mode mode);

    /// Fills @p bytes with what comes next. @returns how much it was; 0 at the end of the file
    size_t read(char *bytes, size_t size);
    void write(const char *bytes, size_t size);
    /// Closes the file; a device may tell only now that it has no room.
    void close();
    bool isOpen() const { return m_file != nullptr; }

private:
    [[noreturn]] void fail() const;

    struct Closer
    {
        void operator()(std::FILE *file) const { std::fclose(file); }
    };
    QString m_path;
    FileUse m_use;
    std::unique_ptr<std::FILE, Closer> m_file;
};
