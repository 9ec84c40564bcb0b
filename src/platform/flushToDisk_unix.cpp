#include "platform/flushToDisk.h"

#include <QFile>

#include <unistd.h>

bool flushToDisk(QFile &file)
{
    return ::fsync(file.handle()) == 0;
}
