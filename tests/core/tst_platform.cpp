#include "platform/RecoveryFile.h"
#include "platform/privateSettings.h"
#include "platform/process.h"
#include "platform/registry.h"
#include "platform/settings.h"
#include "support/LooseEnd.h"
#include "support/raisedError.h"
#include "support/testFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <memory>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

const QString application = u"Orbek Oracle"_s;
const QString section = u"Settings"_s;
const QString controlKey = u"Software\\BCDLL\\CurrentVersion"_s;

} // namespace

class tst_Platform : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void settings();
    void storeIsTheOwnersAlone();
    void storeThatCannotBeUsed();
    void registry();
    void textsOutliveASuddenEnd();
    void programsGetNoFilesOfOurs();

private:
    std::unique_ptr<QTemporaryDir> m_config;
};

void tst_Platform::init()
{
    m_config = std::make_unique<QTemporaryDir>();
    QVERIFY(m_config->isValid());
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_config->filePath(u"home"_s)));
}

void tst_Platform::settings()
{
    QCOMPARE(getSetting(application, section, u"Login"_s), QString());
    QVERIFY(!QFileInfo::exists(privateSettingsPath(application)));
    for (const auto &value : {u"tiger"_s, u""_s, u"  a  "_s, u"@a,b;c=\"d\"\\n%20[x]"_s,
                              u"a\r\nb\tc"_s, u"pässwörd \u4e2d \U0001F600"_s}) {
        saveSetting(application, section, u"Login"_s, value);
        QCOMPARE(getSetting(application, section, u"Login"_s), value);
    }
    QVERIFY(contentOf(privateSettingsPath(application)).contains("Login="));

    // Each section and each application has its own.
    saveSetting(application, u"Other"_s, u"Login"_s, u"system"_s);
    saveSetting(u"Another"_s, section, u"Login"_s, u"sys"_s);
    saveSetting(application, section, u"Login"_s, u"adams"_s);
    QCOMPARE(getSetting(application, section, u"Login"_s), u"adams"_s);
    QCOMPARE(getSetting(application, u"Other"_s, u"Login"_s), u"system"_s);
    QCOMPARE(getSetting(u"Another"_s, section, u"Login"_s), u"sys"_s);
    QCOMPARE(getSetting(application, section, u"Database"_s), QString());
}

void tst_Platform::storeIsTheOwnersAlone()
{
    const QString path = privateSettingsPath(application);
    const QString folder = QFileInfo(path).path();
    const mode_t before = umask(0);
    changePrivateSettings(application, [&](QSettings &) {
        QCOMPARE(modeOf(path), 0600);
        QCOMPARE(modeOf(folder), 0700);
    });
    saveSetting(application, section, u"Password"_s, u"tiger"_s);
    umask(before);
    QCOMPARE(modeOf(path), 0600);

    chmod(QFile::encodeName(path).constData(), 0644);
    chmod(QFile::encodeName(folder).constData(), 0755);
    saveSetting(application, section, u"Password"_s, u"lantern"_s);
    QCOMPARE(modeOf(path), 0600);
    QCOMPARE(modeOf(folder), 0700);
}

void tst_Platform::storeThatCannotBeUsed()
{
    QFile inTheWay(m_config->filePath(u"home"_s));
    QVERIFY(inTheWay.open(QIODevice::WriteOnly));
    const auto save = [] { saveSetting(application, section, u"Login"_s, u"scott"_s); };
    const auto get = [] { getSetting(application, section, u"Login"_s); };
    QCOMPARE(raisedError(save), ErrorNumber::PathFileAccessError);
    QCOMPARE(CreateRegKey(controlKey, RegistryHive::LocalMachine), 0);
    QCOMPARE(SetRegValue(controlKey, u"name"_s, u"value"_s), 0);
    QCOMPARE(SetRegValue(controlKey, u"name"_s, QString()), 0);

    QVERIFY(inTheWay.remove());
    QVERIFY(QDir().mkpath(privateSettingsPath(application)));
    QCOMPARE(raisedError(save), ErrorNumber::PathFileAccessError);
    QCOMPARE(raisedError(get), ErrorNumber::PathFileAccessError);

    QVERIFY(QDir().rmdir(privateSettingsPath(application)));
    makePipe(privateSettingsPath(application));
    for (const RuntimeError &error : {raised(save), raised(get)})
        QVERIFY(error.description.endsWith(u"not an ordinary file."_s));
}

void tst_Platform::registry()
{
    const QString name = u"/opt/querna\\Defaults"_s;
    constexpr auto machine = RegistryHive::LocalMachine;
    QCOMPARE(SetRegValue(controlKey, name, QString()), 0);
    QVERIFY(!QFileInfo::exists(privateSettingsPath(u"Registry"_s)));

    QCOMPARE(SetRegValue(controlKey, name, u"-2147483646"_s), 1);
    QCOMPARE(CreateRegKey(controlKey), 2);
    QCOMPARE(SetRegValue(controlKey, name, QString(), machine), 0);
    QCOMPARE(CreateRegKey(controlKey, machine), 1);
    QCOMPARE(CreateRegKey(controlKey, machine), 2);
    QCOMPARE(CreateRegKey(u"Software\\BCDLL"_s, machine), 2);
    for (const int changed : {1, 0})
        QCOMPARE(SetRegValue(controlKey, name, QString()), changed);
    QCOMPARE(CreateRegKey(controlKey), 2);
    QCOMPARE(modeOf(privateSettingsPath(u"Registry"_s)), 0600);
}

void tst_Platform::textsOutliveASuddenEnd()
{
    const QString state = m_config->filePath(u"state"_s);
    qputenv("XDG_STATE_HOME", QFile::encodeName(state));
    const auto lost = [] {
        QByteArrayList texts;
        for (const std::unique_ptr<LostText> &text : LostText::all())
            texts += text->text();
        return texts.join('|');
    };
    // In a process of its own, which ends as @p end has it.
    const auto keepAnd = [](const QByteArray &text, auto &&end) {
        const pid_t child = fork();
        if (child == 0) {
            RecoveryFile file;
            file.keep("an older text");
            file.keep(text);
            end();
        }
        return child;
    };
    const auto killed = [] { ::raise(SIGKILL); };
    const auto goingOn = [] { ::pause(); };
    const auto endOf = [](pid_t child) { ::waitpid(child, nullptr, 0); };

    endOf(keepAnd("select 'ä'", killed));
    QCOMPARE(lost(), "select 'ä'");
    const pid_t living = keepAnd("still at work", goingOn);
    const auto filesThere = [&] {
        return QDir(state + u"/Querna"_s).entryList({u"*.sql"_s}, QDir::Files).size();
    };
    QTRY_COMPARE(filesThere(), 2);
    QCOMPARE(lost(), "select 'ä'");
    ::kill(living, SIGKILL);
    endOf(living);
    QCOMPARE(lost(), "select 'ä'|still at work");

    RecoveryFile own;
    own.keep("mine");
    {
        const auto texts = LostText::all();
        QCOMPARE(texts.size(), 2U);
        QCOMPARE(lost(), ""); // whoever holds them offers them alone
        texts.front()->discard();
    }
    QCOMPARE(lost(), "still at work");
    for (const QFileInfo &file : QDir(state + u"/Querna"_s).entryInfoList({u"*.sql"_s}))
        QCOMPARE(modeOf(file.filePath()), 0600);
    QCOMPARE(modeOf(state + u"/Querna"_s), 0700);
    own.keep({});
    QCOMPARE(filesThere(), 1);
}

void tst_Platform::programsGetNoFilesOfOurs()
{
    LooseEnd looseEnd;
    startProgram(u"/bin/sleep"_s, {u"3"_s});
    QVERIFY(looseEnd.isOursAlone());
}

QTEST_GUILESS_MAIN(tst_Platform)
#include "tst_platform.moc"
