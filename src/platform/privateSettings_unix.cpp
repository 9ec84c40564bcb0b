#include "platform/privateSettings.h"

#include "platform/fileErrors.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

constexpr QFile::Permissions ownerFile = QFile::ReadOwner | QFile::WriteOwner;
constexpr QFile::Permissions ownerFolder = ownerFile | QFile::ExeOwner;

QString settingsFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + "/Querna"_L1;
}

void require(bool done)
{
    if (!done)
        throw RuntimeError(ErrorNumber::PathFileAccessError);
}

/// Gives a file or folder of ours the permissions it has to have, whoever loosened them.
void restrict(const QString &path, QFile::Permissions wanted)
{
    constexpr QFile::Permissions others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                                          QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    if (QFile::permissions(path) & others)
        require(QFile::setPermissions(path, wanted));
}

/// QSettings would create the file with what the process's mask allows and narrow it afterwards;
/// a file that is there keeps its permissions.
void createPrivately(const QString &path)
{
    const QString folder = settingsFolder();
    require(QDir().mkpath(QFileInfo(folder).path()));
    if (!QFileInfo::exists(folder))
        require(QDir().mkdir(folder, ownerFolder));
    require(QFileInfo(folder).isDir());
    restrict(folder, ownerFolder);
    if (!QFileInfo::exists(path)) {
        QFile file(path);
        require(file.open(QIODevice::WriteOnly | QIODevice::NewOnly, ownerFile));
    }
    requireOrdinaryFile(path);
    require(QFileInfo(path).isFile());
    restrict(path, ownerFile);
}

} // namespace

QString privateSettingsPath(const QString &name)
{
    return settingsFolder() + u'/' + name + ".ini"_L1;
}

void readPrivateSettings(const QString &name, const std::function<void(QSettings &)> &read)
{
    const QString path = privateSettingsPath(name);
    if (!QFileInfo::exists(path))
        return;
    requireOrdinaryFile(path);
    require(QFile(path).open(QIODevice::ReadOnly));
    QSettings settings(path, QSettings::IniFormat);
    read(settings);
    require(settings.status() != QSettings::AccessError);
}

void changePrivateSettings(const QString &name, const std::function<void(QSettings &)> &change)
{
    const QString path = privateSettingsPath(name);
    createPrivately(path);
    QSettings settings(path, QSettings::IniFormat);
    change(settings);
    settings.sync();
    require(settings.status() != QSettings::AccessError);
    restrict(path, ownerFile);
}
