#pragma once

#include <QString>

/// Has this process keep its settings in @p folder, its recovered texts too, and leave the user's
/// alone. On Windows, its registry is one of its own until the process ends.
void keepSettingsIn(const QString &folder);
