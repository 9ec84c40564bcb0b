#include "platform/RuntimeError.h"
#include "platform/files.h"
#include "platform/process.h"

#include <windows.h>

#include <io.h>
#include <shellapi.h>

#include <cstdio>
#include <tuple>

void reachConsole()
{
    AttachConsole(ATTACH_PARENT_PROCESS); // fails where there is none
    for (std::FILE *stream : {stdout, stderr}) {
        // A stream that leads to a file or a pipe stays as it is.
        const DWORD name = stream == stdout ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE;
        DWORD mode = 0;
        if (!GetConsoleMode(GetStdHandle(name), &mode))
            continue;
        std::ignore = std::freopen("CONOUT$", "w", stream);
        // The shell has not waited: its prompt stands where the text would begin.
        if (stream == stdout)
            std::ignore = std::fputs("\n", stream) + std::fflush(stream);
    }
}

void openPage(const QString &address)
{
    constexpr INT_PTR lastError = 32; // what is above it means that it was done
    const auto done = reinterpret_cast<INT_PTR>(
        ShellExecuteW(nullptr, nullptr, reinterpret_cast<const wchar_t *>(address.utf16()), nullptr,
                      nullptr, SW_SHOWNORMAL));
    if (done == SE_ERR_FNF || done == SE_ERR_NOASSOC)
        throw RuntimeError(ErrorNumber::FileNotFound);
    if (done <= lastError)
        throw RuntimeError(ErrorNumber::InvalidProcedureCall);
}

void keepFilesFromPrograms()
{
    // No program that is started has any: the toolkit opens them so that none is handed on.
}

bool flushToDisk(QFile &file)
{
    return ::_commit(file.handle()) == 0;
}
