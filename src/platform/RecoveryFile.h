#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QLockFile>
#include <QString>

#include <limits>
#include <memory>
#include <vector>

/// Keeps a text on disk while a process works on it, for the case that the process ends without
/// having said so: a crash, a kill, a power cut. Each process has files of its own, readable by
/// their user alone, in the user's folder for program state. Beside each lies a lock that tells
/// whether its process still lives.
class RecoveryFile
{
public:
    /// Touches no file before the first keep().
    RecoveryFile();
    /// Removes what was kept: an end in order leaves nothing.
    ~RecoveryFile();
    RecoveryFile(const RecoveryFile &) = delete;
    RecoveryFile &operator=(const RecoveryFile &) = delete;

    /// Keeps @p text, in UTF-8, in place of what was kept before; an empty one leaves nothing. What
    /// was there before is lost only when the new text has reached the disk. Callable from any
    /// thread, by one at a time.
    /// @throws RuntimeError 75 when the folder or the lock cannot be made, 70 when the file cannot
    /// be written, 61 when there is no room
    void keep(const QByteArray &text);

private:
    QString m_path;
    std::unique_ptr<QLockFile> m_lock;
};

/// A text whose process has ended without removing it. While this object lives, no other process
/// finds it; unless it is discarded, later ones do.
class LostText
{
public:
    /// All of them, the oldest first. Files that cannot be read are passed over.
    static std::vector<std::unique_ptr<LostText>> all();

    /// In UTF-8, as it was kept last, or its first @p most bytes; empty when it can no longer be
    /// read.
    QByteArray text(qint64 most = std::numeric_limits<qint64>::max()) const;
    /// When it was kept last, in local time.
    QDateTime time() const { return m_time; }
    void discard();

private:
    LostText(const QString &path, std::unique_ptr<QLockFile> lock);

    QString m_path;
    std::unique_ptr<QLockFile> m_lock;
    QDateTime m_time;
};
