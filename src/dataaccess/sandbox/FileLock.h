#pragma once

#include <QString>

#include <chrono>

/// A lock on a file, shared or exclusive, among processes. It ends with this object or with the
/// process, however that ends; a program started from this one holds it as well only if it is given
/// the descriptor.
class FileLock
{
public:
    enum class Mode { Shared, Exclusive };

    FileLock() = default;
    ~FileLock();
    FileLock(const FileLock &) = delete;
    FileLock &operator=(const FileLock &) = delete;

    /// Waits until the lock on the file @p path, which is made if need be, is free; a time of 0
    /// only tries.
    /// @returns whether it was had in time
    /// @throws RuntimeError 75 when the file cannot be opened or locked
    bool lock(const QString &path, Mode mode, std::chrono::milliseconds longest);
    void unlock();
    /// Of the file; -1 without a lock.
    int descriptor() const { return m_file; }

private:
    int m_file = -1;
};
