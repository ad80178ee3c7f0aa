#include "tests/endtoend/CForeignHeap.h"

#include <tlhelp32.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <system_error>

namespace
{
constexpr SIZE_T c_uRoomThere = 4096; // bytes; holds a path or a result
constexpr DWORD c_uPatienceMilliseconds = 20000;

[[noreturn]] void Fail(const char* sWhat)
{
    throw std::system_error(static_cast<int>(GetLastError()), std::system_category(), sWhat);
}

// The probe lies beside the test program.
std::filesystem::path GetProbePath()
{
    std::array<wchar_t, MAX_PATH> path{};
    GetModuleFileNameW(nullptr, path.data(), MAX_PATH);
    return std::filesystem::path(path.data()).parent_path() / "kinetarium-heap-probe.dll";
}

// Runs a function inside the other process, in a new thread, and waits for its end.
void RunThere(HANDLE hProcess, void* pFunction, void* pArgument)
{
    const auto pEntry = reinterpret_cast<LPTHREAD_START_ROUTINE>(pFunction);
    const HANDLE hThread = CreateRemoteThread(hProcess, nullptr, 0, pEntry, pArgument, 0, nullptr);
    if (hThread == nullptr)
    {
        Fail("no thread in the program");
    }
    const DWORD uWaited = WaitForSingleObject(hThread, c_uPatienceMilliseconds);
    CloseHandle(hThread);
    if (uWaited != WAIT_OBJECT_0)
    {
        throw std::runtime_error("the probe in the program does not return");
    }
}

std::byte* FindModuleThere(DWORD uProcessId, const std::wstring& sName)
{
    const HANDLE hSnapshot = CreateToolhelp32Snapshot(TH32CS_SNAPMODULE, uProcessId);
    if (hSnapshot == INVALID_HANDLE_VALUE)
    {
        Fail("no list of modules");
    }
    std::byte* pBase = nullptr;
    MODULEENTRY32W entry{};
    entry.dwSize = sizeof(entry);
    for (BOOL bMore = Module32FirstW(hSnapshot, &entry); bMore != FALSE; bMore = Module32NextW(hSnapshot, &entry))
    {
        if (sName == entry.szModule)
        {
            pBase = reinterpret_cast<std::byte*>(entry.modBaseAddr);
        }
    }
    CloseHandle(hSnapshot);
    if (pBase == nullptr)
    {
        throw std::runtime_error("the probe was not loaded into the program");
    }
    return pBase;
}

// The offset of the probe's function in its library; the same in every process.
std::ptrdiff_t GetFunctionOffset(const std::filesystem::path& probe)
{
    const HMODULE hHere = LoadLibraryW(probe.c_str());
    if (hHere == nullptr)
    {
        Fail("the probe cannot be loaded");
    }
    const auto* const pFunction = reinterpret_cast<const std::byte*>(GetProcAddress(hHere, c_sHeapProbeFunction));
    const std::ptrdiff_t iOffset = pFunction - reinterpret_cast<const std::byte*>(hHere);
    FreeLibrary(hHere);
    if (pFunction == nullptr)
    {
        throw std::runtime_error("the probe has no function to count with");
    }
    return iOffset;
}
} // namespace

CForeignHeap::CForeignHeap(HANDLE hProcess, DWORD uProcessId) : m_hProcess(hProcess)
{
    const std::filesystem::path probe = GetProbePath();
    const std::wstring sPath = probe.wstring();
    const std::ptrdiff_t iOffset = GetFunctionOffset(probe);
    m_pThere = VirtualAllocEx(hProcess, nullptr, c_uRoomThere, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
    if (m_pThere == nullptr ||
        WriteProcessMemory(hProcess, m_pThere, sPath.c_str(), (sPath.size() + 1) * sizeof(wchar_t), nullptr) == FALSE)
    {
        Fail("no memory in the program");
    }
    // The system's own library lies at the same address in every process.
    RunThere(hProcess, reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "LoadLibraryW")),
             m_pThere);
    m_pFunctionThere = FindModuleThere(uProcessId, probe.filename().wstring()) + iOffset;
}

CForeignHeap::~CForeignHeap()
{
    VirtualFreeEx(m_hProcess, m_pThere, 0, MEM_RELEASE);
}

CHeapCount CForeignHeap::Count() const
{
    const CHeapCount none;
    CHeapCount count;
    if (WriteProcessMemory(m_hProcess, m_pThere, &none, sizeof(none), nullptr) == FALSE)
    {
        Fail("no memory in the program");
    }
    RunThere(m_hProcess, m_pFunctionThere, m_pThere);
    if (ReadProcessMemory(m_hProcess, m_pThere, &count, sizeof(count), nullptr) == FALSE)
    {
        Fail("the probe's result cannot be read");
    }
    if (count.complete == 0)
    {
        throw std::runtime_error("the program's heaps cannot be walked to their ends");
    }
    return count;
}
