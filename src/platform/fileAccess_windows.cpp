#include "platform/fileAccess.h"

#include <io.h>

bool flushToDisk(QFile &file)
{
    return ::_commit(file.handle()) == 0;
}
