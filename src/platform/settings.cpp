#include "platform/settings.h"

#include <QSettings>

QString getSetting(const QString &application, const QString &section, const QString &key)
{
    QString value;
    readPrivateSettings(application, [&](QSettings &settings) {
        settings.beginGroup(section);
        value = settings.value(key).toString();
    });
    return value;
}

void saveSetting(const QString &application, const QString &section, const QString &key,
                 const QString &value)
{
    changePrivateSettings(application, [&](QSettings &settings) {
        settings.beginGroup(section);
        settings.setValue(key, value);
    });
}
