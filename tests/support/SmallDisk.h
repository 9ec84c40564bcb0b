#pragma once

#include <QString>
#include <QTemporaryDir>

#include <sys/types.h>

/// A folder that is a disk of its own, in memory, which can fill up. No other process sees it.
class SmallDisk
{
public:
    /// @param size  as in "64k"; "2m"
    explicit SmallDisk(const char *size);
    ~SmallDisk();
    SmallDisk(const SmallDisk &) = delete;
    SmallDisk &operator=(const SmallDisk &) = delete;

    /// Whether the system lets this user make one.
    bool isThere() const { return m_isThere; }
    QString path() const { return m_folder.path(); }
    QString file(const QString &name) const { return m_folder.filePath(name); }
    bool setSize(const char *size);
    bool makeReadOnly();
    /// Leaves no room but @p pages of 4096 bytes.
    void fill(int pages = 0);
    void empty();

private:
    bool mount(unsigned long flags, const char *options);

    QTemporaryDir m_folder;
    bool m_isThere = false;
};

/// Whoever may do everything is bound by no permissions; while this lives, that is nobody.
class WithoutRights
{
public:
    /// @param taken  whether they are taken at all
    explicit WithoutRights(bool taken = true);
    ~WithoutRights();
    WithoutRights(const WithoutRights &) = delete;
    WithoutRights &operator=(const WithoutRights &) = delete;
    /// Whether this process can do so; permissions bind any other anyway.
    static bool canBeTaken();
};
