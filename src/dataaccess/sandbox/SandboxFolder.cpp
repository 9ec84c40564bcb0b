#include "dataaccess/sandbox/SandboxFolder.h"

#include "platform/RuntimeError.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <cerrno>
#include <cstring>

#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

// For its owner alone, and really a folder of this user: a name in a folder that everybody may
// write to could have been taken by somebody else.
void makePrivateFolder(const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    struct stat state = {};
    bool made = ::mkdir(name.constData(), 0700) == 0 || errno == EEXIST;
    if (made)
        made = ::lstat(name.constData(), &state) == 0;
    if (made && (!S_ISDIR(state.st_mode) || state.st_uid != ::geteuid())) {
        errno = EPERM;
        made = false;
    }
    if (made && (state.st_mode & 0777) != 0700)
        made = ::chmod(name.constData(), 0700) == 0;
    if (!made) {
        throw RuntimeError(ErrorNumber::PathFileAccessError,
                           u"The sandbox's folder %1 cannot be used: %2"_s.arg(
                               path, QString::fromLocal8Bit(strerror(errno))));
    }
}

// So that a folder has the same name for everybody, also before it is there.
QString withoutLinks(const QString &path)
{
    const QFileInfo info(path);
    if (info.exists() || info.isRoot())
        return info.canonicalFilePath();
    return withoutLinks(info.path()) + u'/' + info.fileName();
}

// Connection strings end values at a semicolon and enclose them in braces.
bool fitsSocket(const QString &path)
{
    return QFile::encodeName(path).size() < int(sizeof(sockaddr_un::sun_path)) &&
           !path.contains(u';') && !path.contains(u'{') && !path.contains(u'}');
}

} // namespace

SandboxFolder SandboxFolder::ofUser()
{
    const QString chosen = qEnvironmentVariable("QUERNA_SANDBOX_DIR");
    const QString usual = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                          u"/Orbek Oracle/sandbox"_s;
    return SandboxFolder(withoutLinks(QDir(chosen.isEmpty() ? usual : chosen).absolutePath()));
}

SandboxFolder::SandboxFolder(const QString &path)
    : m_path(path)
{
}

void SandboxFolder::make() const
{
    QDir().mkpath(QDir(m_path + u"/.."_s).absolutePath());
    makePrivateFolder(m_path);
    makePrivateFolder(temporaryPath());
}

QString SandboxFolder::file(const QString &name) const
{
    return m_path + u'/' + name;
}

QString SandboxFolder::dataPath() const
{
    return file(u"data"_s);
}

QString SandboxFolder::temporaryPath() const
{
    return file(u"tmp"_s);
}

QString SandboxFolder::socketForServer() const
{
    const QString here = file(u"socket"_s);
    if (fitsSocket(here))
        return here;

    const QByteArray digest =
        QCryptographicHash::hash(m_path.toUtf8(), QCryptographicHash::Sha256).toHex().left(16);
    const QString name = u"querna-"_s + QString::number(::geteuid()) + u'-' + QLatin1String(digest);
    for (const QString &parent : {qEnvironmentVariable("XDG_RUNTIME_DIR"), u"/tmp"_s}) {
        const QString folder = parent + u'/' + name;
        const QString socket = folder + u"/socket"_s;
        if (parent.isEmpty() || !QFileInfo(parent).isWritable() || !fitsSocket(socket))
            continue;
        makePrivateFolder(folder);
        return socket;
    }
    throw RuntimeError(ErrorNumber::PathFileAccessError,
                       u"There is no place for the sandbox's socket: %1 is too long."_s.arg(here));
}
