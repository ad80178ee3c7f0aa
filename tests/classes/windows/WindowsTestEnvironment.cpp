#include "tests/classes/windows/WindowsTestEnvironment.h"

#include "classes/windows/drawing/CPictureBits.h"
#include "classes/windows/system/Handles.h"

#include <chrono>
#include <cstring>
#include <memory>

bool SetClipboardText(HWND hOwner, const std::wstring& sText)
{
    if (!OpenClipboard(hOwner))
    {
        return false;
    }
    EmptyClipboard();
    const SIZE_T uBytes = (sText.size() + 1) * sizeof(wchar_t);
    const HGLOBAL hMemory = GlobalAlloc(GMEM_MOVEABLE, uBytes);
    std::memcpy(GlobalLock(hMemory), sText.c_str(), uBytes);
    GlobalUnlock(hMemory);
    const bool bSet = SetClipboardData(CF_UNICODETEXT, hMemory) != nullptr;
    CloseClipboard();
    return bSet;
}

std::wstring GetText(HWND hWnd)
{
    const LRESULT iLength = SendMessageW(hWnd, WM_GETTEXTLENGTH, 0, 0);
    std::wstring sText(static_cast<std::size_t>(iLength) + 1, L'\0');
    const LRESULT iRead = SendMessageW(hWnd, WM_GETTEXT, sText.size(), reinterpret_cast<LPARAM>(sText.data()));
    sText.resize(static_cast<std::size_t>(iRead));
    return sText;
}

void PressKey(CTestMainWindow& window, WPARAM wKey)
{
    constexpr LPARAM c_iReleased = (LPARAM{3} << 30) | 1;
    PostMessageW(GetFocus(), WM_KEYDOWN, wKey, 1);
    window.Pump();
    PostMessageW(GetFocus(), WM_KEYUP, wKey, c_iReleased);
    window.Pump();
}

void PressTab(CTestMainWindow& window, bool bShift)
{
    if (bShift)
    {
        PressTabWith(window, VK_SHIFT);
    }
    else
    {
        PressKey(window, VK_TAB);
    }
}

void PressTabWith(CTestMainWindow& window, int iModifier)
{
    constexpr int c_iKeys = 256;
    constexpr BYTE c_byDown = 0x80;
    BYTE keys[c_iKeys]{};
    keys[iModifier] = c_byDown;
    SetKeyboardState(keys);
    PressKey(window, VK_TAB);
    keys[iModifier] = 0;
    SetKeyboardState(keys);
}

void TypeText(CTestMainWindow& window, HWND hWnd, const std::wstring& sText)
{
    for (const wchar_t c : sText)
    {
        PostMessageW(hWnd, WM_CHAR, c, 1);
    }
    window.Pump();
}

void Click(CTestMainWindow& window, HWND hWnd)
{
    RECT rc{};
    GetClientRect(hWnd, &rc);
    const LPARAM lPoint = MAKELPARAM(rc.right / 2, rc.bottom / 2);
    PostMessageW(hWnd, WM_LBUTTONDOWN, MK_LBUTTON, lPoint);
    PostMessageW(hWnd, WM_LBUTTONUP, 0, lPoint);
    window.Pump();
}

COLORREF GetShownPixel(HWND hWnd, int x, int y)
{
    const CWindowDc dc(hWnd);
    return GetPixel(dc.Get(), x, y);
}

CPicture CopyFromScreen(HWND hWnd)
{
    RECT rc{};
    GetClientRect(hWnd, &rc);
    POINT pt{};
    ClientToScreen(hWnd, &pt);
    std::unique_ptr<CPictureBits> pBits = CPictureBits::Create(rc.right, rc.bottom);
    CPicture picture;
    if (!pBits)
    {
        return picture;
    }
    {
        const CWindowDc screen(nullptr);
        const CMemoryDc memory(screen.Get());
        const CBitmapHandle bitmap(CreateCompatibleBitmap(screen.Get(), rc.right, rc.bottom));
        const CSelectObject selected(memory.Get(), bitmap.Get());
        BitBlt(memory.Get(), 0, 0, rc.right, rc.bottom, screen.Get(), pt.x, pt.y, SRCCOPY);
        const CMemoryDc target(nullptr);
        const CSelectObject pixels(target.Get(), pBits->GetBitmap());
        BitBlt(target.Get(), 0, 0, rc.right, rc.bottom, memory.Get(), 0, 0, SRCCOPY);
        GdiFlush();
    }
    picture.CreateFromPixels(rc.right, rc.bottom, pBits->GetPixels());
    return picture;
}

bool PumpUntil(CTestMainWindow& window, const std::function<bool()>& condition)
{
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    while (!condition())
    {
        if (std::chrono::steady_clock::now() > deadline)
        {
            return false;
        }
        window.Pump();
        Sleep(1);
    }
    return true;
}
