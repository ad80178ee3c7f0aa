#include "tests/view/windows/CTestParent.h"

#include "classes/windows/system/WndProcForward.h"
#include "tests/classes/core/CLibrarySettingsChange.h"

namespace
{

constexpr const wchar_t* c_sClassName = L"KinetariumViewTestParent";
constexpr unsigned short c_uIcon = 104;
constexpr int c_iBackdrop = 101;

CLibrarySettings GetTestSettings()
{
    CLibrarySettings settings;
    settings.pIsRightToLeft = [](unsigned char byLanguage) { return byLanguage == CTestParent::c_byRightToLeft; };
    return settings;
}

} // namespace

CTestParent::CTestParent(EnumPicDrawMode eDrawMode, unsigned char byLanguage)
{
    const CLibrarySettingsChange settings(GetTestSettings());
    const HINSTANCE hInstance = GetModuleHandleW(nullptr);
    Initialize(c_sClassName, &m_sLog, HKEY_LOCAL_MACHINE, nullptr, hInstance, nullptr, byLanguage, c_uIcon, 0, 0,
               c_iBackdrop, c_iBackdrop, eDrawMode);
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof(windowClass);
    windowClass.lpfnWndProc = WndProcForward<CTestParent>;
    windowClass.hInstance = hInstance;
    windowClass.hCursor = m_hCursorNormal;
    windowClass.lpszClassName = c_sClassName;
    RegisterClassExW(&windowClass);
    m_hWnd = CreateWindowExW(WS_EX_TOPMOST, c_sClassName, L"", WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN, c_iLeft, c_iTop,
                             c_iWidth, c_iHeight, nullptr, nullptr, hInstance, this);
    SetForegroundWindow(m_hWnd);
}

CTestParent::~CTestParent()
{
    if (m_hWnd != nullptr && IsWindow(m_hWnd))
    {
        DestroyWindow(m_hWnd);
    }
}

LRESULT CTestParent::WndProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    switch (uMessage)
    {
    case WM_LBUTTONUP:
    case WM_RBUTTONUP:
    case WM_KEYUP:
    case WM_NOTIFY:
        m_received.push_back({uMessage, wParam, lParam});
        return c_iAnswer;
    default:
        return DefWindowProcW(hWnd, uMessage, wParam, lParam);
    }
}
