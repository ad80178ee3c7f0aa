#include "view/CWndWorldView.h"

#include "classes/windows/system/Handles.h"
#include "classes/windows/system/RegisterOwnClass.h"
#include "classes/windows/system/ScrollBar.h"
#include "classes/windows/system/ShowCreateWindow.h"
#include "diagnostics/Guard.h"

namespace
{

constexpr const wchar_t* c_sClassName = L"CWndWorldView";
constexpr int c_iExtraWindowBytes = 8;
constexpr DWORD c_dwRightToLeftStyle = WS_EX_LAYOUTRTL | WS_EX_RTLREADING | WS_EX_RIGHT;

} // namespace

CWndWorldView::CWndWorldView(const CWndCommon* pParent, const CSize<int>& sizeWorld, const CAtoms& atoms,
                             CreateDirect2DFactoryFunction pCreateFactory)
    : m_painterDirect2D(pCreateFactory)
{
    std::wstring* const pDebugLog = pParent != nullptr ? pParent->GetDebugLog() : nullptr;
    Traced({pDebugLog, __TIMESTAMP__}, [&] {
        m_pDebugLog = pDebugLog;
        if (pParent == nullptr || pParent->GetBackdrop() == nullptr)
        {
            return;
        }
        m_pParent = pParent;
        m_pAtoms = &atoms;
        m_sizeWorld = sizeWorld;
        InitializeWindow();
    });
}

CWndWorldView::~CWndWorldView()
{
    Traced({m_pDebugLog, __TIMESTAMP__}, [&] {
        if (m_hWnd != nullptr && !m_bDestroyed)
        {
            DestroyWindow(m_hWnd);
        }
        m_hWnd = nullptr;
        // The pictures keep brushes of the target that is released now.
        m_picBackdrop.ReleaseDirect2D();
        m_picWorld.ReleaseDirect2D();
        m_painterDirect2D.Release();
    });
}

HWND CWndWorldView::GetWindowHandle() const
{
    return m_hWnd;
}

bool CWndWorldView::InitializeWindow()
{
    return Traced({m_pDebugLog, __TIMESTAMP__}, false, [&] {
        if (!CWndCommon::Initialize(c_sClassName, m_pParent, m_pParent->GetInstance()))
        {
            return false;
        }
        if (!RegisterViewClass())
        {
            return false;
        }
        m_hWnd = CreateViewWindow();
        if (m_hWnd == nullptr)
        {
            return false;
        }
        ShowCreateWindow(m_pDebugLog, this, c_sClassName, L"m_hWnd", m_hWnd, nullptr);
        m_bWindowReady = false;
        SetWindowLongPtrW(m_hWnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        CreateWorldPicture();
        ClearScrollBar(m_hWnd, SB_VERT);
        ClearScrollBar(m_hWnd, SB_HORZ);
        m_bWindowReady = true;
        ShowWindow(m_hWnd, SW_SHOWNORMAL);
        OnEraseBackground();
        return true;
    });
}

// The class stays registered; a second view finds it there.
bool CWndWorldView::RegisterViewClass() const
{
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof(windowClass);
    windowClass.style = CS_HREDRAW | CS_VREDRAW;
    windowClass.lpfnWndProc = WndProcWrapper;
    windowClass.cbWndExtra = c_iExtraWindowBytes;
    windowClass.hInstance = m_hInstance;
    windowClass.hIcon = m_hIconLarge;
    windowClass.hCursor = m_hCursorNormal;
    windowClass.hbrBackground = m_hBackgroundBrush;
    windowClass.lpszClassName = c_sClassName;
    return RegisterOwnClass(windowClass);
}

// Position and size are 0: the parent's layout sets them.
HWND CWndWorldView::CreateViewWindow() const
{
    const DWORD dwExStyle = m_StringResource.IsRightToLeft() ? c_dwRightToLeftStyle : 0;
    return CreateWindowExW(dwExStyle, c_sClassName, L"", WS_CHILD | WS_CLIPCHILDREN | WS_VSCROLL | WS_HSCROLL, 0, 0, 0,
                           0, GetParentHandle(), nullptr, m_hInstance, nullptr);
}

void CWndWorldView::CreateWorldPicture()
{
    const CWindowDc dc(m_hWnd);
    m_picWorld.CreatePictureFromColorref(dc.Get(), m_sizeWorld.cx, m_sizeWorld.cy, m_crWorldBackground);
}

bool CWndWorldView::InitializeSettings(CSize<int>& sizeWorld, bool bNoScrolling, EnumAtomColourMode eMode,
                                       unsigned long cr1, CWString& sFactor1, unsigned long cr2, CWString& sFactor2,
                                       unsigned long cr3, CWString& sFactor3)
{
    return Traced({m_pDebugLog, __TIMESTAMP__}, false, [&] {
        m_sizeWorld = sizeWorld;
        UseScrolling(!bNoScrolling);
        m_eColourMode = eMode;
        m_pAtomColourSettings[0].cr = static_cast<ColourRef>(cr1);
        m_pAtomColourSettings[1].cr = static_cast<ColourRef>(cr2);
        m_pAtomColourSettings[2].cr = static_cast<ColourRef>(cr3);
        const std::optional<std::int32_t> countAtoms =
            m_pAtoms != nullptr ? std::optional(m_pAtoms->GetCount()) : std::nullopt;
        const CFactors factors{CFactor(sFactor1), CFactor(sFactor2), CFactor(sFactor3)};
        if (!InterpretFactors(eMode, factors, countAtoms, m_pAtomColourSettings))
        {
            return false;
        }
        m_painterGdi.BeginRun();
        const bool bSuccess = m_painterDirect2D.Prepare(m_hWnd, m_pAtomColourSettings, m_pDebugLog);
        RedrawWorld();
        return bSuccess;
    });
}

void CWndWorldView::SetWorldBackgroundColour(unsigned long cr)
{
    Traced({m_pDebugLog, __TIMESTAMP__}, [&] {
        m_crWorldBackground = static_cast<COLORREF>(cr);
        CreateWorldPicture();
        RedrawWorld();
    });
}
