#include "support/settingsPlace.h"

#include <QCoreApplication>
#include <QFile>

#include <windows.h>

#include <optional>

namespace {

/// The user's hive of the registry for as long as this is there.
class Hive
{
public:
    Hive()
    {
        HKEY key = nullptr;
        if (RegCreateKeyExW(HKEY_CURRENT_USER, path(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key,
                            nullptr) != ERROR_SUCCESS ||
            RegOverridePredefKey(HKEY_CURRENT_USER, key) != ERROR_SUCCESS)
            qFatal("The tests get no place in the registry.");
        RegCloseKey(key);
    }
    ~Hive()
    {
        RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
        RegDeleteTreeW(HKEY_CURRENT_USER, path());
    }
    Hive(const Hive &) = delete;
    Hive &operator=(const Hive &) = delete;

private:
    const wchar_t *path() const { return reinterpret_cast<const wchar_t *>(m_path.utf16()); }

    QString m_path =
        QStringLiteral("Software\\Querna's tests\\%1").arg(QCoreApplication::applicationPid());
};

} // namespace

void keepSettingsIn(const QString &folder)
{
    static std::optional<Hive> hive;
    hive.reset();
    hive.emplace();
    qputenv("XDG_STATE_HOME", QFile::encodeName(folder + QLatin1StringView("/state")));
}
