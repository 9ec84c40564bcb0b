#include "support/SandboxFixture.h"

#include "dataaccess/sandbox/FileLock.h"
#include "dataaccess/sandbox/SandboxFolder.h"

using namespace Qt::StringLiterals;

bool SandboxFixture::hasEnded()
{
    const SandboxFolder folder = SandboxFolder::ofUser();
    FileLock server;
    FileLock life;
    const auto isFree = [&](FileLock &lock, const QString &name) {
        return lock.lock(folder.file(name), FileLock::Mode::Exclusive, {});
    };
    return isFree(server, u"server.lock"_s) && isFree(life, u"life.lock"_s);
}
