#include "dataaccess/sandbox/SandboxFolder.h"

#include "platform/RuntimeError.h"
#include "platform/files.h"

#include <QDir>
#include <QStandardPaths>

#include <cerrno>
#include <cstring>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

// Bytes. The server's own paths have 511, and need some for what is in the folder.
constexpr int longestPath = 400;

// Really a folder of this user: a name in a folder that everybody may write to could have been
// taken by somebody else.
void makePrivateFolder(const QString &path)
{
    struct stat state = {};
    const bool made =
        makeOwnerFolder(path) && ::lstat(QFile::encodeName(path).constData(), &state) == 0;
    if (made && S_ISDIR(state.st_mode) && state.st_uid == ::geteuid())
        return;
    throw RuntimeError(ErrorNumber::PathFileAccessError,
                       u"The sandbox's folder %1 cannot be used: %2"_s.arg(
                           path, QString::fromLocal8Bit(strerror(made ? EPERM : errno))));
}

// So that a folder has the same name for everybody, also before it is there.
QString withoutLinks(const QString &path)
{
    const QFileInfo info(path);
    if (info.exists() || info.isRoot())
        return info.canonicalFilePath();
    return withoutLinks(info.path()) + u'/' + info.fileName();
}

} // namespace

SandboxFolder SandboxFolder::ofUser()
{
    const QString chosen = qEnvironmentVariable("QUERNA_SANDBOX_DIR");
    const QString usual = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                          u"/Orbek Oracle/sandbox"_s;
    return SandboxFolder(withoutLinks(QDir(chosen.isEmpty() ? usual : chosen).absolutePath()));
}

void SandboxFolder::make() const
{
    if (QFile::encodeName(m_path).size() > longestPath) {
        throw RuntimeError(ErrorNumber::PathFileAccessError,
                           u"The sandbox's folder %1 cannot be used: its path is longer than %2 "
                           "bytes."_s.arg(m_path, QString::number(longestPath)));
    }
    makePrivateFolder(m_path);
    makePrivateFolder(temporaryPath());
}
