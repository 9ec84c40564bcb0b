#pragma once

#include <QString>

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
