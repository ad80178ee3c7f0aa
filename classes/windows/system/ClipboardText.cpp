#include "classes/windows/system/ClipboardText.h"

#include <cwchar>

namespace
{
// Releases clipboard and memory block on every way out, also after an exception.
class CClipboardScope
{
public:
    explicit CClipboardScope(HWND hOwner) : m_bOpen(OpenClipboard(hOwner) != FALSE) {}
    CClipboardScope(const CClipboardScope&) = delete;
    CClipboardScope& operator=(const CClipboardScope&) = delete;
    ~CClipboardScope()
    {
        if (m_bOpen)
        {
            CloseClipboard();
        }
    }
    bool IsOpen() const { return m_bOpen; }

private:
    bool m_bOpen;
};

class CGlobalLockScope
{
public:
    explicit CGlobalLockScope(HGLOBAL hMemory) : m_hMemory(hMemory), m_pData(GlobalLock(hMemory)) {}
    CGlobalLockScope(const CGlobalLockScope&) = delete;
    CGlobalLockScope& operator=(const CGlobalLockScope&) = delete;
    ~CGlobalLockScope()
    {
        if (m_pData != nullptr)
        {
            GlobalUnlock(m_hMemory);
        }
    }
    const wchar_t* GetText() const { return static_cast<const wchar_t*>(m_pData); }
    std::size_t GetRoom() const { return GlobalSize(m_hMemory) / sizeof(wchar_t); }

private:
    HGLOBAL m_hMemory;
    void* m_pData;
};
} // namespace

std::wstring ReadClipboardText(HWND hOwner)
{
    const CClipboardScope clipboard(hOwner);
    if (!clipboard.IsOpen())
    {
        return {};
    }
    const HANDLE hData = GetClipboardData(CF_UNICODETEXT);
    if (hData == nullptr)
    {
        return {};
    }
    const CGlobalLockScope memory(hData);
    if (memory.GetText() == nullptr)
    {
        return {};
    }
    // The program that filled the block may have left out the final zero.
    return std::wstring(memory.GetText(), wcsnlen(memory.GetText(), memory.GetRoom()));
}
