#include "support/coreTest.h"

#ifdef Q_OS_WIN
#include <windows.h>
#endif

namespace {

const QString application = u"Orbek Oracle"_s;
const QString section = u"Settings"_s;
const QString controlKey = u"Software\\BCDLL\\CurrentVersion"_s;
const QString valueName = u"C:\\Tools/Defaults"_s;

QString stored(const QString &name)
{
    return QSettings(privateSettingsPath(name), QSettings::NativeFormat)
        .value(u"Settings/Login"_s)
        .toString();
}

} // namespace

/// The user's settings and the registry, whatever the system keeps them in.
class tst_Settings : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void settings();
    void registry();
#ifdef Q_OS_WIN
    void registryAsOthersSeeIt();
#endif

private:
    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_Settings::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    keepSettingsIn(m_folder->path());
}

void tst_Settings::settings()
{
    QCOMPARE(getSetting(application, section, u"Login"_s), QString());
    for (const auto &value : {u"tiger"_s, u""_s, u"  a  "_s, u"@a,b;c=\"d\"\\n%20[x]"_s,
                              u"a\r\nb\tc"_s, u"pässwörd \u4e2d \U0001F600"_s}) {
        saveSetting(application, section, u"Login"_s, value);
        QCOMPARE(getSetting(application, section, u"Login"_s), value);
        QCOMPARE(stored(application), value);
    }

    // Each section and each application has its own.
    saveSetting(application, u"Other"_s, u"Login"_s, u"system"_s);
    saveSetting(u"Another"_s, section, u"Login"_s, u"sys"_s);
    saveSetting(application, section, u"Login"_s, u"adams"_s);
    QCOMPARE(getSetting(application, section, u"Login"_s), u"adams"_s);
    QCOMPARE(getSetting(application, u"Other"_s, u"Login"_s), u"system"_s);
    QCOMPARE(getSetting(u"Another"_s, section, u"Login"_s), u"sys"_s);
    QCOMPARE(getSetting(application, section, u"Database"_s), QString());
}

void tst_Settings::registry()
{
    constexpr auto machine = RegistryHive::LocalMachine;
    QCOMPARE(SetRegValue(controlKey, valueName, QString()), 0);
    QCOMPARE(CreateRegKey(u"Software\\BCDLL"_s), 1);
    QCOMPARE(SetRegValue(controlKey, valueName, u"-2147483646"_s), 1);
    QCOMPARE(CreateRegKey(controlKey), 2);
    QCOMPARE(SetRegValue(controlKey, valueName, QString(), machine), 0);
    QCOMPARE(CreateRegKey(controlKey, machine), 1);
    QCOMPARE(CreateRegKey(controlKey, machine), 2);
    QCOMPARE(CreateRegKey(u"Software\\BCDLL"_s, machine), 2);
    for (const int changed : {1, 0})
        QCOMPARE(SetRegValue(controlKey, valueName, QString()), changed);
    QCOMPARE(CreateRegKey(controlKey), 2);
}

#ifdef Q_OS_WIN
void tst_Settings::registryAsOthersSeeIt()
{
    const auto wide = [](const QString &text) {
        return reinterpret_cast<const wchar_t *>(text.utf16());
    };
    const auto textIn = [&](const QString &key, const QString &name) {
        wchar_t text[64] = {};
        DWORD size = sizeof text;
        const LSTATUS error = RegGetValueW(HKEY_CURRENT_USER, wide(key), wide(name), RRF_RT_REG_SZ,
                                           nullptr, text, &size);
        return error == ERROR_SUCCESS ? QString::fromWCharArray(text) : u"(none)"_s;
    };
    QCOMPARE(SetRegValue(controlKey, valueName, u"-2147483646"_s), 1);
    QCOMPARE(textIn(controlKey.toLower(), valueName), u"-2147483646"_s);
    saveSetting(application, section, u"Login"_s, u"gr\u00fc\u00df \u4e2d"_s);
    QCOMPARE(textIn(u"Software\\Querna\\Orbek Oracle\\Settings"_s, u"Login"_s),
             u"gr\u00fc\u00df \u4e2d"_s);
    QCOMPARE(CreateRegKey(controlKey.toUpper()), 2);
    QCOMPARE(SetRegValue(controlKey.toUpper(), valueName.toLower(), QString()), 1);
    QCOMPARE(textIn(controlKey, valueName), u"(none)"_s);
}
#endif

QTEST_GUILESS_MAIN(tst_Settings)
#include "tst_settings.moc"
