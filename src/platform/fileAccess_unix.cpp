#include "platform/fileAccess.h"

#include <unistd.h>

bool flushToDisk(QFile &file)
{
    return ::fsync(file.handle()) == 0;
}
