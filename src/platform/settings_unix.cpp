#include "platform/settings.h"

#include "platform/files.h"

#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

QString settingsFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + "/Querna"_L1;
}

void require(bool done)
{
    if (!done)
        throw RuntimeError(ErrorNumber::PathFileAccessError);
}

/// QSettings would create the file with what the process's mask allows and narrow it afterwards;
/// a file that is there keeps its permissions.
void createPrivately(const QString &path)
{
    require(makeOwnerFolder(settingsFolder()));
    if (!QFileInfo::exists(path)) {
        QFile file(path);
        require(file.open(QIODevice::WriteOnly | QIODevice::NewOnly, ownerFile));
    }
    requireOrdinaryFile(path);
    require(QFileInfo(path).isFile() && shutToOthers(path));
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
    require(settings.status() != QSettings::AccessError && shutToOthers(path));
}
