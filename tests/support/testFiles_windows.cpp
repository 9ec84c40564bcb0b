#include "support/testFiles.h"

QString fileInVariable(const char *variable, const QString &)
{
    return qEnvironmentVariable(variable);
}
