#include "platform/settings.h"

#include "platform/RuntimeError.h"

#include <QSettings>

using namespace Qt::StringLiterals;

namespace {

/// Runs @p use on the settings of that name, and has on disk what it changed.
void withSettings(const QString &name, const std::function<void(QSettings &)> &use)
{
    QSettings settings(privateSettingsPath(name), QSettings::NativeFormat);
    use(settings);
    settings.sync();
    if (settings.status() != QSettings::NoError)
        throw RuntimeError(ErrorNumber::PathFileAccessError);
}

} // namespace

QString privateSettingsPath(const QString &name)
{
    return u"HKEY_CURRENT_USER\\Software\\Querna\\"_s + name;
}

void readPrivateSettings(const QString &name, const std::function<void(QSettings &)> &read)
{
    withSettings(name, read);
}

void changePrivateSettings(const QString &name, const std::function<void(QSettings &)> &change)
{
    withSettings(name, change);
}
