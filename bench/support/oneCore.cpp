#include "support/oneCore.h"

#include "support/figures.h"

#include <QCoreApplication>
#include <QDir>

#include <sched.h>

using namespace Qt::StringLiterals;

void shareOneCore(qint64 server)
{
    cpu_set_t cores;
    CPU_ZERO(&cores);
    CPU_SET(0, &cores);
    for (const qint64 process : {QCoreApplication::applicationPid(), server}) {
        const QDir threads(u"/proc/%1/task"_s.arg(process));
        for (const QString &thread : threads.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
            if (sched_setaffinity(thread.toInt(), sizeof cores, &cores) != 0)
                giveUp(u"A thread cannot be bound to a core."_s);
        }
    }
}
