#include "support/testFiles.h"

#include <windows.h>

#include <psapi.h>

QString fileInVariable(const char *variable, const QString &)
{
    return qEnvironmentVariable(variable);
}

long peakMegabytes()
{
    PROCESS_MEMORY_COUNTERS counters = {};
    ::K32GetProcessMemoryInfo(::GetCurrentProcess(), &counters, sizeof counters);
    return static_cast<long>(counters.PeakWorkingSetSize >> 20);
}
