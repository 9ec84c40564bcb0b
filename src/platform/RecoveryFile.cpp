#include "platform/RecoveryFile.h"

#include "platform/RuntimeError.h"
#include "platform/files.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>
#include <QUuid>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString suffix = u".sql"_s;

// Where the desktop's base directories have programs keep what is worth keeping between two starts
// and not worth a backup.
QString recoveryFolder()
{
#ifdef Q_OS_WIN
    const QString usual = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
#else
    const QString usual = QDir::homePath() + u"/.local/state"_s;
#endif
    const QString chosen = qEnvironmentVariable("XDG_STATE_HOME");
    return (chosen.isEmpty() ? usual : chosen) + u"/Querna"_s;
}

// Only the end of its process makes a lock void, however long ago it was taken.
std::unique_ptr<QLockFile> lockOf(const QString &path)
{
    auto lock = std::make_unique<QLockFile>(path + u".lock"_s);
    lock->setStaleLockTime(0);
    return lock->tryLock() ? std::move(lock) : nullptr;
}

} // namespace

RecoveryFile::RecoveryFile()
    : m_path(recoveryFolder() + u'/' + QUuid::createUuid().toString(QUuid::WithoutBraces) + suffix)
{
}

RecoveryFile::~RecoveryFile()
{
    if (m_lock)
        QFile::remove(m_path);
}

void RecoveryFile::keep(const QByteArray &text)
{
    if (text.isEmpty()) {
        if (m_lock)
            QFile::remove(m_path);
        return;
    }
    if (!m_lock) {
        if (makeOwnerFolder(QFileInfo(m_path).path()))
            m_lock = lockOf(m_path);
        if (!m_lock)
            throw RuntimeError(ErrorNumber::PathFileAccessError);
    }
    QSaveFile file(m_path);
    if (!file.open(QIODevice::WriteOnly) || !file.setPermissions(ownerFile))
        throw RuntimeError(ErrorNumber::PermissionDenied);
    if (file.write(text) != text.size() || !file.commit())
        throw RuntimeError(ErrorNumber::DiskFull);
}

LostText::LostText(const QString &path, std::unique_ptr<QLockFile> lock)
    : m_path(path)
    , m_lock(std::move(lock))
    , m_time(QFileInfo(path).lastModified())
{
}

std::vector<std::unique_ptr<LostText>> LostText::all()
{
    std::vector<std::unique_ptr<LostText>> found;
    const QDir folder(recoveryFolder());
    for (const QString &name :
         folder.entryList({u'*' + suffix}, QDir::Files, QDir::Time | QDir::Reversed)) {
        const QString path = folder.filePath(name);
        std::unique_ptr<QLockFile> lock = lockOf(path);
        // The process may have ended in order, removing it, after the folder was read.
        if (lock && QFile::exists(path))
            found.emplace_back(new LostText(path, std::move(lock)));
    }
    return found;
}

QByteArray LostText::text(qint64 most) const
{
    QFile file(m_path);
    return file.open(QIODevice::ReadOnly) ? file.read(std::min(most, file.size())) : QByteArray();
}

void LostText::discard()
{
    QFile::remove(m_path);
}
