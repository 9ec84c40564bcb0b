#pragma once

#include <QString>

#include <functional>

class QSettings;

/// Per-user settings: values named by application, section and key. The store is a file that only
/// its owner can read (mode 0600), on Windows the user's own part of the registry.

/// The stored value; an empty text when there is none.
/// @throws RuntimeError 75 when the store cannot be read
QString getSetting(const QString &application, const QString &section, const QString &key);

/// Stores a value, at once and on disk.
/// @throws RuntimeError 75 when the store cannot be written
void saveSetting(const QString &application, const QString &section, const QString &key,
                 const QString &value);

/// The program's own settings files: INI files in the user's configuration folder, in a folder
/// that only the owner can open (0700), each readable by the owner alone (0600). A device or a pipe
/// in the place of one is refused. On Windows each is a key of the user's part of the registry.

/// The path of the settings file with base name @p name, or of its key. Nothing is created.
QString privateSettingsPath(const QString &name);

/// Runs @p read on the file's settings; without a file nothing need be run.
/// @throws RuntimeError 75 when the file is there and cannot be read
void readPrivateSettings(const QString &name, const std::function<void(QSettings &)> &read);

/// Runs @p change on the file's settings, creating the file if need be, and has them on disk
/// when it returns. The owner alone can read the file at every moment.
/// @throws RuntimeError 75 when the file cannot be created or written
void changePrivateSettings(const QString &name, const std::function<void(QSettings &)> &change);

/// Handles of the two registry hives that the program names.
enum class RegistryHive : quint32 { CurrentUser = 0x80000001U, LocalMachine = 0x80000002U };

/// Creates a registry key if it is not there (Win32 RegCreateKeyEx, access KEY_WRITE).
/// @returns 1 when it was created, 2 when it was there, 0 on failure
qint32 CreateRegKey(const QString &keyName, RegistryHive hive = RegistryHive::CurrentUser);

/// Writes a text value (Win32 RegSetValueEx, REG_SZ), creating the key when it is missing. An
/// empty @p value deletes the named value instead and creates nothing.
/// @returns 1 when done, 0 when not
///
/// Where there is no registry, both work on a per-user settings file in its stead; the local
/// machine's hive is kept per user too. The registry itself lets an ordinary user write nothing
/// into that hive.
qint16 SetRegValue(const QString &keyName, const QString &valueName, const QString &value,
                   RegistryHive hive = RegistryHive::CurrentUser);
