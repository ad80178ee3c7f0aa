#include "tests/windows/CReplacedImport.h"

#include <cstring>
#include <stdexcept>
#include <string>

namespace
{
template<class T>
T* At(DWORD dwOffset)
{
    return reinterpret_cast<T*>(reinterpret_cast<unsigned char*>(GetModuleHandleW(nullptr)) + dwOffset);
}

const IMAGE_IMPORT_DESCRIPTOR* GetImports()
{
    const auto* pHeaders = At<IMAGE_NT_HEADERS>(static_cast<DWORD>(At<IMAGE_DOS_HEADER>(0)->e_lfanew));
    return At<IMAGE_IMPORT_DESCRIPTOR>(
        pHeaders->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress);
}

// The entry of the program's import table for the function.
ULONG_PTR* FindEntry(const char* sFunction)
{
    for (const IMAGE_IMPORT_DESCRIPTOR* pLibrary = GetImports(); pLibrary->Name != 0; ++pLibrary)
    {
        const auto* pName = At<IMAGE_THUNK_DATA>(pLibrary->OriginalFirstThunk);
        auto* pEntry = At<IMAGE_THUNK_DATA>(pLibrary->FirstThunk);
        for (; pName->u1.AddressOfData != 0; ++pName, ++pEntry)
        {
            if (IMAGE_SNAP_BY_ORDINAL(pName->u1.Ordinal))
            {
                continue;
            }
            const auto* pImport = At<IMAGE_IMPORT_BY_NAME>(static_cast<DWORD>(pName->u1.AddressOfData));
            if (std::strcmp(reinterpret_cast<const char*>(pImport->Name), sFunction) == 0)
            {
                return reinterpret_cast<ULONG_PTR*>(&pEntry->u1.Function);
            }
        }
    }
    throw std::runtime_error(std::string("this program imports no ") + sFunction);
}

void Write(ULONG_PTR* pEntry, ULONG_PTR uValue)
{
    DWORD dwProtection = 0;
    VirtualProtect(pEntry, sizeof *pEntry, PAGE_READWRITE, &dwProtection);
    *pEntry = uValue;
    VirtualProtect(pEntry, sizeof *pEntry, dwProtection, &dwProtection);
}
} // namespace

CReplacedImport::CReplacedImport(const char* sFunction, ULONG_PTR uReplacement)
    : m_pEntry(FindEntry(sFunction)), m_uOriginal(*m_pEntry)
{
    Write(m_pEntry, uReplacement);
}

CReplacedImport::~CReplacedImport()
{
    Write(m_pEntry, m_uOriginal);
}
