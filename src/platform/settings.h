#pragma once

#include <QString>

/// Per-user settings: values named by application, section and key. The store is a file that only
/// its owner can read (mode 0600), on Windows the user's own part of the registry.

/// The stored value; an empty text when there is none.
/// @throws RuntimeError 75 when the store cannot be read
QString getSetting(const QString &application, const QString &section, const QString &key);

/// Stores a value, at once and on disk.
/// @throws RuntimeError 75 when the store cannot be written
void saveSetting(const QString &application, const QString &section, const QString &key,
                 const QString &value);
