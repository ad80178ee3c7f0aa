#include "classes/windows/crash/CrashDump.h"

#include <dbghelp.h>

#include <bit>

namespace
{
using MiniDumpWriteDumpFunction = decltype(&MiniDumpWriteDump);

constexpr auto c_Contents = static_cast<MINIDUMP_TYPE>(MiniDumpNormal | MiniDumpWithThreadInfo);
} // namespace

DWORD WriteCrashDump(HANDLE hFile, DWORD dwThread, EXCEPTION_POINTERS* pPointers) noexcept
{
    const HMODULE hLibrary = LoadLibraryExW(L"dbghelp.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (hLibrary == nullptr)
    {
        return GetLastError();
    }
    const FARPROC pProcedure = GetProcAddress(hLibrary, "MiniDumpWriteDump");
    if (pProcedure == nullptr)
    {
        return GetLastError();
    }
    MINIDUMP_EXCEPTION_INFORMATION exception{dwThread, pPointers, FALSE};
    const auto pWrite = std::bit_cast<MiniDumpWriteDumpFunction>(pProcedure);
    if (!pWrite(GetCurrentProcess(), GetCurrentProcessId(), hFile, c_Contents, &exception, nullptr, nullptr))
    {
        return GetLastError();
    }
    return ERROR_SUCCESS;
}
