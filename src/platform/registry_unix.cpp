#include "platform/settings.h"

#include "platform/RuntimeError.h"

#include <QSettings>

using namespace Qt::StringLiterals;

namespace {

constexpr qint32 failed = 0;
constexpr qint32 createdNewKey = 1;
constexpr qint32 openedExistingKey = 2;

const QString registryFile = u"Registry"_s;

/// Stands for the key itself, as a file of settings has no empty groups.
const QString keyMarker = u"(key)"_s;

/// The group of a key: its parts are subgroups, as its parents are keys too.
QString groupName(const QString &keyName, RegistryHive hive)
{
    const QLatin1StringView root =
        hive == RegistryHive::LocalMachine ? "HKEY_LOCAL_MACHINE"_L1 : "HKEY_CURRENT_USER"_L1;
    return root + u'/' + QString(keyName).replace(u'\\', u'/');
}

/// A value's name in the file, where a slash would begin a subgroup.
QString storedName(const QString &valueName)
{
    return valueName.isEmpty() ? u"(default)"_s : QString(valueName).replace(u'/', u'\\');
}

/// Whether the group that @p settings stand in is there.
bool keyExists(const QSettings &settings)
{
    return !settings.childKeys().isEmpty() || !settings.childGroups().isEmpty();
}

/// @returns whether there was such a value
bool deleteValue(const QString &group, const QString &name)
{
    bool there = false;
    readPrivateSettings(registryFile, [&](QSettings &settings) {
        settings.beginGroup(group);
        there = settings.contains(name);
    });
    if (there) {
        changePrivateSettings(registryFile, [&](QSettings &settings) {
            settings.beginGroup(group);
            settings.remove(name);
        });
    }
    return there;
}

} // namespace

qint32 CreateRegKey(const QString &keyName, RegistryHive hive)
{
    qint32 disposition = failed;
    try {
        changePrivateSettings(registryFile, [&](QSettings &settings) {
            settings.beginGroup(groupName(keyName, hive));
            disposition = keyExists(settings) ? openedExistingKey : createdNewKey;
            if (disposition == createdNewKey)
                settings.setValue(keyMarker, QString());
        });
    } catch (const RuntimeError &) {
        return failed;
    }
    return disposition;
}

qint16 SetRegValue(const QString &keyName, const QString &valueName, const QString &value,
                   RegistryHive hive)
{
    try {
        if (value.isEmpty())
            return deleteValue(groupName(keyName, hive), storedName(valueName)) ? 1 : 0;
        if (CreateRegKey(keyName, hive) == failed)
            return 0;
        changePrivateSettings(registryFile, [&](QSettings &settings) {
            settings.beginGroup(groupName(keyName, hive));
            settings.setValue(storedName(valueName), value);
        });
        return 1;
    } catch (const RuntimeError &) {
        return 0;
    }
}
