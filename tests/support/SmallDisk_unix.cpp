#include "support/SmallDisk.h"

#include <QFile>

#include <sched.h>
#include <sys/fsuid.h>
#include <sys/mount.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr uid_t nobody = 65534;
const QString fillerName = u"filler"_s;
constexpr int pageBytes = 4096;

/// Mounts that nobody else sees, and that go with this process.
bool ownMounts()
{
    static const bool own = ::unshare(CLONE_NEWNS) == 0 &&
                            ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
    return own;
}

QByteArray sizeOption(const char *size)
{
    return QByteArray("size=") + size;
}

} // namespace

SmallDisk::SmallDisk(const char *size)
    : m_isThere(ownMounts() && mount(0, sizeOption(size)))
{
}

SmallDisk::~SmallDisk()
{
    if (m_isThere)
        ::umount2(QFile::encodeName(path()).constData(), MNT_DETACH);
}

bool SmallDisk::mount(unsigned long flags, const char *options)
{
    return ::mount("tmpfs", QFile::encodeName(path()).constData(), "tmpfs", flags, options) == 0;
}

bool SmallDisk::setSize(const char *size)
{
    return mount(MS_REMOUNT, sizeOption(size));
}

bool SmallDisk::makeReadOnly()
{
    return mount(MS_REMOUNT | MS_RDONLY, nullptr);
}

void SmallDisk::fill(int pages)
{
    QFile filler(file(fillerName));
    if (!filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return;
    while (filler.write(QByteArray(pageBytes, 'x')) > 0) {
    }
    filler.resize(filler.size() - qint64{pages} * pageBytes);
}

void SmallDisk::empty()
{
    QFile::remove(file(fillerName));
}

WithoutRights::WithoutRights(bool taken)
{
    if (taken && canBeTaken())
        ::setfsuid(nobody);
}

WithoutRights::~WithoutRights()
{
    ::setfsuid(::geteuid());
}

bool WithoutRights::canBeTaken()
{
    return ::geteuid() == 0;
}
