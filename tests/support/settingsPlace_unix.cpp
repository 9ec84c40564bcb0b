#include "support/settingsPlace.h"

#include <QFile>

void keepSettingsIn(const QString &folder)
{
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(folder + QLatin1StringView("/settings")));
    qputenv("XDG_STATE_HOME", QFile::encodeName(folder + QLatin1StringView("/state")));
}
