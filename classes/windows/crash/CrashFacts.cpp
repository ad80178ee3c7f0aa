#include "classes/windows/crash/CrashFacts.h"

#include "classes/core/CCpuCapabilities.h"

#include <windows.h>

#include <bit>
#include <psapi.h>

CCrashTime GetCrashTime() noexcept
{
    SYSTEMTIME time{};
    GetSystemTime(&time);
    return {time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond};
}

void GetCrashMemory(CCrashFacts& facts) noexcept
{
    MEMORYSTATUSEX machine{};
    machine.dwLength = sizeof machine;
    if (GlobalMemoryStatusEx(&machine))
    {
        facts.memoryTotal = machine.ullTotalPhys;
        facts.memoryFree = machine.ullAvailPhys;
    }
    PROCESS_MEMORY_COUNTERS process{};
    if (K32GetProcessMemoryInfo(GetCurrentProcess(), &process, sizeof process))
    {
        facts.memoryOwn = process.WorkingSetSize;
    }
}

void AddSystemVersion(CFixedText& text) noexcept
{
    using RtlGetVersionFunction = LONG(WINAPI*)(RTL_OSVERSIONINFOW*);
    const FARPROC pProcedure = GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "RtlGetVersion");
    RTL_OSVERSIONINFOW version{};
    version.dwOSVersionInfoSize = sizeof version;
    if (pProcedure == nullptr || std::bit_cast<RtlGetVersionFunction>(pProcedure)(&version) != 0)
    {
        text.Add("Windows of an unknown version");
        return;
    }
    text.Add("Windows ").AddNumber(version.dwMajorVersion).Add(".").AddNumber(version.dwMinorVersion);
    text.Add(".").AddNumber(version.dwBuildNumber);
}

void AddProcessor(CFixedText& text) noexcept
{
    SYSTEM_INFO system{};
    GetNativeSystemInfo(&system);
    const CCpuCapabilities capabilities(false);
    text.AddNumber(system.dwNumberOfProcessors).Add(system.dwNumberOfProcessors == 1 ? " processor" : " processors");
    text.Add(capabilities.HasAvx2() ? ", AVX2" : ", no AVX2");
    text.Add(capabilities.HasAvx512() ? ", AVX-512" : ", no AVX-512");
}

void AddImageChecksum(CFixedText& text) noexcept
{
    const auto* pImage = reinterpret_cast<const unsigned char*>(GetModuleHandleW(nullptr));
    const auto* pDos = reinterpret_cast<const IMAGE_DOS_HEADER*>(pImage);
    const auto* pHeaders = reinterpret_cast<const IMAGE_NT_HEADERS*>(pImage + pDos->e_lfanew);
    text.Add(", image checksum ").AddHex(pHeaders->OptionalHeader.CheckSum, 2 * sizeof(DWORD));
}
