#include "classes/windows/system/CPathTurn.h"

#include "classes/core/CFnvHash.h"

#include <windows.h>

namespace
{
// A name of the system must be short and hold no backslash.
CWString MakeName(const CWString& sPath)
{
    std::wstring sLower = sPath.Get();
    CharLowerBuffW(sLower.data(), static_cast<DWORD>(sLower.size()));
    CFnvHash hash;
    for (const wchar_t c : sLower)
    {
        hash.AddWord(static_cast<std::uint32_t>(c));
    }
    CWString sName;
    sName.Format(L"Global\\turn-at-file-%I64u", hash.Get());
    return sName;
}
} // namespace

CPathTurn::CPathTurn(const CWString& sPath, unsigned uPatience)
    : m_hMutex(CreateMutexW(nullptr, FALSE, MakeName(sPath).c_str()))
{
    if (!m_hMutex)
    {
        m_bMayWrite = true;
        return;
    }
    // A program that ended in its turn has left the mutex to the next one.
    const DWORD dwResult = WaitForSingleObject(m_hMutex.Get(), uPatience);
    m_bOwned = dwResult == WAIT_OBJECT_0 || dwResult == WAIT_ABANDONED;
    m_bMayWrite = m_bOwned;
}

CPathTurn::~CPathTurn()
{
    if (m_bOwned)
    {
        ReleaseMutex(m_hMutex.Get());
    }
}
