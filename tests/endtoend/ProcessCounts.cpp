#include "tests/endtoend/ProcessCounts.h"

#include <tlhelp32.h>
#include <winternl.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <map>
#include <stdexcept>
#include <vector>

namespace
{
constexpr auto c_eSystemHandleInformation = static_cast<SYSTEM_INFORMATION_CLASS>(16);
constexpr NTSTATUS c_iInfoLengthMismatch = static_cast<NTSTATUS>(0xC0000004);

// One entry of the system's list of handles, which is a count followed by one entry per handle of any process.
struct CHandleEntry
{
    std::uint16_t processId;
    std::uint16_t traceIndex;
    std::uint8_t objectType;
    std::uint8_t flags;
    std::uint16_t value;
    void* pObject;
    std::uint32_t access;
};

// The offset of the pointer to the GDI handle table in the process environment block of a 64-bit process, and the
// layout of that table.
constexpr std::size_t c_uGdiTableInPeb = 0xF8;
constexpr std::size_t c_uGdiTableEntries = 0x4000;
struct CGdiEntry
{
    std::uint64_t object;
    std::uint16_t ownerProcessId;
    std::uint16_t ownerHigh;
    std::uint16_t unique;
    std::uint8_t type;
    std::uint8_t flags;
    std::uint64_t userData;
};
static_assert(sizeof(CGdiEntry) == 24, "one entry of the table takes 24 bytes");

std::string NameGdiKind(std::uint8_t uType)
{
    switch (uType)
    {
    case 0x01:
        return "device contexts";
    case 0x04:
        return "regions";
    case 0x05:
        return "surfaces";
    case 0x08:
        return "palettes";
    case 0x09:
        return "bitmaps";
    case 0x0A:
        return "fonts";
    case 0x10:
        return "brushes and pens";
    default:
        return "of kind " + std::to_string(uType);
    }
}

template<class T>
void ReadOther(HANDLE hProcess, const void* pFrom, T* pTo, std::size_t uCount)
{
    SIZE_T uRead = 0;
    const SIZE_T uBytes = sizeof(T) * uCount;
    if (ReadProcessMemory(hProcess, pFrom, pTo, uBytes, &uRead) == FALSE || uRead != uBytes)
    {
        throw std::runtime_error("the memory of the program cannot be read");
    }
}

struct CWindowCount
{
    DWORD uProcessId;
    int iWindows;
};

BOOL CALLBACK CountWindow(HWND hWindow, LPARAM iCount)
{
    auto& count = *reinterpret_cast<CWindowCount*>(iCount);
    DWORD uProcessId = 0;
    GetWindowThreadProcessId(hWindow, &uProcessId);
    count.iWindows += uProcessId == count.uProcessId ? 1 : 0;
    return TRUE;
}
} // namespace

int CountThreads(DWORD uProcessId)
{
    const HANDLE hSnapshot = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
    if (hSnapshot == INVALID_HANDLE_VALUE)
    {
        throw std::runtime_error("no list of threads");
    }
    int iCount = 0;
    THREADENTRY32 entry{};
    entry.dwSize = sizeof(entry);
    for (BOOL bMore = Thread32First(hSnapshot, &entry); bMore != FALSE; bMore = Thread32Next(hSnapshot, &entry))
    {
        iCount += entry.th32OwnerProcessID == uProcessId ? 1 : 0;
    }
    CloseHandle(hSnapshot);
    return iCount;
}

int CountHandles(DWORD uProcessId)
{
    constexpr std::size_t c_uFirstTry = 1U << 16; // bytes; doubled until the list fits
    std::vector<std::byte> buffer(c_uFirstTry);
    NTSTATUS iStatus = c_iInfoLengthMismatch;
    for (;;)
    {
        iStatus = NtQuerySystemInformation(c_eSystemHandleInformation, buffer.data(), static_cast<ULONG>(buffer.size()),
                                           nullptr);
        if (iStatus != c_iInfoLengthMismatch)
        {
            break;
        }
        buffer.resize(buffer.size() * 2);
    }
    if (iStatus < 0)
    {
        throw std::runtime_error("no list of handles");
    }
    std::uint32_t uTotal = 0;
    std::memcpy(&uTotal, buffer.data(), sizeof(uTotal));
    int iCount = 0;
    for (std::uint32_t i = 0; i < uTotal; ++i)
    {
        CHandleEntry entry;
        // The entries are aligned to the size of a pointer.
        std::memcpy(&entry, buffer.data() + sizeof(void*) + i * sizeof(entry), sizeof(entry));
        iCount += entry.processId == static_cast<std::uint16_t>(uProcessId) ? 1 : 0;
    }
    return iCount;
}

CGdiCount CountGdiObjects(HANDLE hProcess)
{
    if (const DWORD uCount = GetGuiResources(hProcess, GR_GDIOBJECTS); uCount != 0)
    {
        return {static_cast<int>(uCount), {}};
    }
    // Wine does not count them but maintains the same table as Windows.
    PROCESS_BASIC_INFORMATION basic{};
    if (NtQueryInformationProcess(hProcess, ProcessBasicInformation, &basic, sizeof(basic), nullptr) < 0)
    {
        throw std::runtime_error("no environment block of the program");
    }
    const void* pTable = nullptr;
    ReadOther(hProcess, reinterpret_cast<const std::byte*>(basic.PebBaseAddress) + c_uGdiTableInPeb, &pTable, 1);
    std::vector<CGdiEntry> table(c_uGdiTableEntries);
    ReadOther(hProcess, pTable, table.data(), table.size());
    CGdiCount count;
    std::map<std::string, int> kinds;
    for (const CGdiEntry& entry : table)
    {
        if (entry.type != 0)
        {
            ++count.total;
            ++kinds[NameGdiKind(entry.type)];
        }
    }
    for (const auto& [sKind, iCount] : kinds)
    {
        count.kinds += (count.kinds.empty() ? "" : ", ") + std::to_string(iCount) + " " + sKind;
    }
    return count;
}

int CountUserObjects(HANDLE hProcess)
{
    if (const DWORD uCount = GetGuiResources(hProcess, GR_USEROBJECTS); uCount != 0)
    {
        return static_cast<int>(uCount);
    }
    CWindowCount count{GetProcessId(hProcess), 0};
    // The desktop's descendants are all windows except message-only windows.
    EnumChildWindows(GetDesktopWindow(), CountWindow, reinterpret_cast<LPARAM>(&count));
    HWND hWindow = nullptr;
    while ((hWindow = FindWindowExW(HWND_MESSAGE, hWindow, nullptr, nullptr)) != nullptr)
    {
        CountWindow(hWindow, reinterpret_cast<LPARAM>(&count));
    }
    return count.iWindows;
}
