#include "platform/flushToDisk.h"

#include <QFile>

#include <io.h>

bool flushToDisk(QFile &file)
{
    return ::_commit(file.handle()) == 0;
}
