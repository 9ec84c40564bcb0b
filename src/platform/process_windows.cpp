#include "platform/process.h"

#include "platform/RuntimeError.h"

#include <windows.h>

#include <shellapi.h>

#include <cstdio>
#include <tuple>

void reachConsole()
{
    // Streams that lead to a file or a pipe are there already.
    if (GetStdHandle(STD_OUTPUT_HANDLE) != nullptr || !AttachConsole(ATTACH_PARENT_PROCESS))
        return;
    for (std::FILE *stream : {stdout, stderr})
        std::ignore = std::freopen("CONOUT$", "w", stream);
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
