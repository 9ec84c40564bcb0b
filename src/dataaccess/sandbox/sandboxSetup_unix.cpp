#include "dataaccess/sandbox/serverProgram.h"

#include "platform/RuntimeError.h"
#include "platform/process.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStandardPaths>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

// The library is static: nothing else would keep its resources in the program.
static void initSandboxResources()
{
    Q_INIT_RESOURCE(sandbox);
}

QByteArray sandboxResource(const QString &name)
{
    initSandboxResources();
    QFile file(u":/sandbox/"_s + name);
    if (!file.open(QIODevice::ReadOnly))
        throw RuntimeError(ErrorNumber::FileNotFound);
    return file.readAll();
}

namespace {

// The server works in its data folder, and would take a path with colons for several ones.
constexpr auto temporaryFolder = "../tmp"_L1;
constexpr int longestStep = 180'000; // milliseconds; a step takes a second, on slow disks some

QString findProgram(const QString &name)
{
    QString program = QStandardPaths::findExecutable(name);
    if (program.isEmpty()) // the system's own folders are not on everybody's path
        program = QStandardPaths::findExecutable(
            name, {u"/usr/sbin"_s, u"/usr/local/sbin"_s, u"/usr/bin"_s, u"/usr/local/bin"_s});
    if (program.isEmpty()) {
        throw RuntimeError(
            ErrorNumber::ProviderNotFound,
            u"The sandbox needs the MariaDB server (%1 was not found). Install it "
            "with: sudo apt install mariadb-server-core mariadb-client-core"_s.arg(name));
    }
    return program;
}

void runStep(const SandboxFolder &folder, const QString &program, const QStringList &arguments,
             const QByteArray &input, const FileLock &lock)
{
    QProcess process;
    process.setWorkingDirectory(folder.path());
    // Starting servers clear the temporary files of their kind away, so each has its own.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"UMASK"_s, u"0600"_s);
    environment.insert(u"UMASK_DIR"_s, u"0700"_s);
    environment.insert("TMPDIR"_L1, temporaryFolder);
    process.setProcessEnvironment(environment);
    keepFilesFromPrograms();
    process.setChildProcessModifier([file = lock.descriptor()] {
        ::umask(077);
        ::fcntl(file, F_SETFD, 0);
    });
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    process.write(input);
    process.closeWriteChannel();
    const bool ended = process.waitForFinished(longestStep);
    if (ended && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0)
        return;

    const QString words = sandboxErrorLines(process.readAll());
    throw RuntimeError(
        ErrorNumber::ProviderFailed,
        process.error() == QProcess::Timedout
            ? u"Making the sandbox's database took too long and was given up. %1"_s.arg(words)
            : u"The sandbox's database could not be made. %1"_s.arg(words));
}

/// The statements of a file of the sandbox's SQL, each brought to one line: the server reads its
/// start-up statements line by line.
QByteArray sandboxStatements(const QByteArray &sql)
{
    QByteArray statements;
    QByteArray statement;
    for (const QByteArray &line : sql.split('\n')) {
        const QByteArray part = line.trimmed();
        if (part == "/") {
            statements += statement + ";\n";
            statement.clear();
        } else if (!part.isEmpty() && !part.startsWith("--")) {
            statement += (statement.isEmpty() ? "" : " ") + part;
        }
    }
    return statements;
}

} // namespace

QString sandboxErrorLines(const QByteArray &log)
{
    constexpr qsizetype most = 3;
    const QStringList lines = QString::fromUtf8(log).split(u'\n', Qt::SkipEmptyParts);
    const QStringList errors = lines.filter(u"ERROR"_s);
    // One error brings others along: the first ones tell the cause.
    const QStringList shown =
        errors.isEmpty() ? lines.mid(qMax<qsizetype>(0, lines.size() - most)) : errors.mid(0, most);
    return shown.join(u'\n');
}

QString sandboxServerProgram()
{
    return findProgram(u"mariadbd"_s);
}

QStringList sandboxServerOptions(const QString &dataPath)
{
    QStringList options = {
        u"--no-defaults"_s,
        u"--datadir="_s + dataPath,
        u"--lower-case-table-names=1"_s,
        // Days that do not exist cannot be stored: its driver would give them as nulls.
        u"--sql-mode=ORACLE,STRICT_TRANS_TABLES,ERROR_FOR_DIVISION_BY_ZERO,NO_ZERO_DATE,"
        "NO_ZERO_IN_DATE,NO_BACKSLASH_ESCAPES,NO_ENGINE_SUBSTITUTION,EMPTY_STRING_IS_NULL"_s,
        u"--character-set-server=utf8mb4"_s,
        u"--collation-server=utf8mb4_nopad_bin"_s,
        u"--innodb-buffer-pool-size=64M"_s,
        u"--innodb-log-file-size=16M"_s,
        u"--innodb-use-native-aio=OFF"_s, // kernels restrict it in containers
        u"--innodb-buffer-pool-dump-at-shutdown=OFF"_s,
        u"--innodb-buffer-pool-load-at-startup=OFF"_s,
        u"--key-buffer-size=1M"_s,
        u"--aria-pagecache-buffer-size=8M"_s,
        u"--performance-schema=OFF"_s,
        u"--table-open-cache=400"_s,
        u"--max-connections=250"_s,
        u"--open-files-limit=2048"_s,
        u"--log-warnings=1"_s,
        u"--skip-log-bin"_s,
        u"--skip-networking"_s,
        u"--skip-name-resolve"_s,
    };
    if (::geteuid() == 0) // the server runs as root only when told so
        options.insert(1, u"--user=root"_s);
    return options;
}

QStringList sandboxServingOptions()
{
    return {
        u"--socket=../socket"_s,
        u"--log-error=../server.log"_s,
        "--tmpdir="_L1 + temporaryFolder,
        u"--transaction-isolation=READ-COMMITTED"_s,
        u"--innodb-lock-wait-timeout=20"_s,
        u"--max-allowed-packet=1G"_s,
        u"--local-infile=OFF"_s,
        // A session may rest over a long weekend.
        u"--wait-timeout=2147483"_s,
        u"--interactive-timeout=2147483"_s,
        u"--net-write-timeout=86400"_s,
    };
}

void createSandboxData(const SandboxFolder &folder, const FileLock &lock)
{
    const QString making = u"./data.new"_s;
    QDir(folder.file(making)).removeRecursively(); // an attempt that was broken off
    // The script does not understand blanks in paths. Forced, it does not mind a machine that
    // cannot look up its own name.
    runStep(folder, findProgram(u"mariadb-install-db"_s),
            sandboxServerOptions(making) + QStringList{u"--skip-test-db"_s, u"--force"_s}, {},
            lock);
    QByteArray statements = "SET NAMES utf8mb4;\nFLUSH PRIVILEGES;\n";
    for (const char *name : {"accounts", "dictionary", "dbms_output", "plan_table", "scott"})
        statements += sandboxStatements(sandboxResource(QLatin1StringView(name) + u".sql"_s));
    // Reading statements the server checks no rights, and knows no accounts until told to.
    runStep(folder, sandboxServerProgram(),
            sandboxServerOptions(making) + QStringList{u"--bootstrap"_s}, statements, lock);
    if (!QDir().rename(folder.file(making), folder.dataPath()))
        throw RuntimeError(ErrorNumber::PathFileAccessError);
}
