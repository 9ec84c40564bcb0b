#include "platform/settings.h"

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

namespace {

constexpr qint32 failed = 0;

HKEY hiveKey(RegistryHive hive)
{
    return hive == RegistryHive::LocalMachine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
}

const wchar_t *wide(const QString &text)
{
    return reinterpret_cast<const wchar_t *>(text.utf16());
}

LSTATUS openForValues(const QString &keyName, RegistryHive hive, HKEY &key)
{
    return RegOpenKeyExW(hiveKey(hive), wide(keyName), 0, KEY_SET_VALUE, &key);
}

bool isMissing(LSTATUS error)
{
    return error == ERROR_FILE_NOT_FOUND || error == ERROR_BADKEY;
}

LSTATUS setText(HKEY key, const QString &name, const QString &value)
{
    const auto bytes = static_cast<DWORD>((value.size() + 1) * qsizetype{sizeof(wchar_t)});
    return RegSetValueExW(key, wide(name), 0, REG_SZ, reinterpret_cast<const BYTE *>(value.utf16()),
                          bytes);
}

} // namespace

qint32 CreateRegKey(const QString &keyName, RegistryHive hive)
{
    HKEY key = nullptr;
    DWORD disposition = 0;
    if (RegCreateKeyExW(hiveKey(hive), wide(keyName), 0, nullptr, REG_OPTION_NON_VOLATILE,
                        KEY_WRITE, nullptr, &key, &disposition) != ERROR_SUCCESS)
        return failed;
    RegCloseKey(key);
    return static_cast<qint32>(disposition);
}

qint16 SetRegValue(const QString &keyName, const QString &valueName, const QString &value,
                   RegistryHive hive)
{
    HKEY key = nullptr;
    LSTATUS error = openForValues(keyName, hive, key);
    if (!value.isEmpty() && isMissing(error) && CreateRegKey(keyName, hive) != failed)
        error = openForValues(keyName, hive, key);
    if (error != ERROR_SUCCESS)
        return 0;
    error =
        value.isEmpty() ? RegDeleteValueW(key, wide(valueName)) : setText(key, valueName, value);
    RegCloseKey(key);
    return error == ERROR_SUCCESS ? 1 : 0;
}
