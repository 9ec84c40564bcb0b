#include "support/testFiles.h"

#include <QCoreApplication>
#include <QFile>

#include <windows.h>

#include <memory>

namespace {

/// A hive of the registry for as long as this is there.
class Hive
{
public:
    Hive(HKEY replaced, const QString &name)
        : m_replaced(replaced)
        , m_path(QStringLiteral("Software\\Querna's tests\\%1\\%2")
                     .arg(QCoreApplication::applicationPid())
                     .arg(name))
    {
        HKEY key = nullptr;
        if (RegCreateKeyExW(HKEY_CURRENT_USER, path(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key,
                            nullptr) != ERROR_SUCCESS ||
            RegOverridePredefKey(m_replaced, key) != ERROR_SUCCESS)
            qFatal("The tests get no place in the registry.");
        RegCloseKey(key);
    }
    ~Hive()
    {
        RegOverridePredefKey(m_replaced, nullptr);
        RegDeleteTreeW(HKEY_CURRENT_USER, path());
    }
    Hive(const Hive &) = delete;
    Hive &operator=(const Hive &) = delete;

private:
    const wchar_t *path() const { return reinterpret_cast<const wchar_t *>(m_path.utf16()); }

    HKEY m_replaced;
    QString m_path;
};

/// The machine's is there first and goes last, as both lie in the user's own.
struct Hives
{
    Hive machine{HKEY_LOCAL_MACHINE, QStringLiteral("machine")};
    Hive user{HKEY_CURRENT_USER, QStringLiteral("user")};
};

} // namespace

void keepSettingsIn(const QString &folder)
{
    static std::unique_ptr<Hives> hives;
    hives.reset();
    hives = std::make_unique<Hives>();
    qputenv("XDG_STATE_HOME", QFile::encodeName(folder + QLatin1StringView("/state")));
}

QString fileInVariable(const char *variable, const QString &)
{
    return qEnvironmentVariable(variable);
}
