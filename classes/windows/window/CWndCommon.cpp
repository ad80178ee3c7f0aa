#include "classes/windows/window/CWndCommon.h"

#include "classes/core/BackdropTexture.h"
#include "classes/core/CLibrarySettings.h"
#include "classes/core/OutputDebugMessage.h"
#include "classes/windows/drawing/SystemLooks.h"
#include "classes/windows/system/LanguageChoice.h"
#include "classes/windows/system/MessagePump.h"
#include "classes/windows/system/RectHelpers.h"
#include "classes/windows/system/ThreadQuit.h"
#include "classes/windows/system/WndProcForward.h"
#include "classes/windows/window/MainWindowKeys.h"

#include <cstdint>

namespace
{
bool IsRightToLeft(unsigned char byLanguage)
{
    const auto pIsRightToLeft = GetLibrarySettings().pIsRightToLeft;
    return pIsRightToLeft != nullptr && pIsRightToLeft(byLanguage);
}
} // namespace

CWndCommon::CWndCommon() = default;

// The classes that made the windows destroy them. A window that is left is detached from the object first, so that none
// of its last messages reaches a destroyed object.
CWndCommon::~CWndCommon()
{
    m_pToolTip.reset();
    if (m_hWnd != nullptr && IsWindow(m_hWnd) && WndProc_GetObject<CWndCommon>(m_hWnd) == this)
    {
        WndProc_SetObject(m_hWnd, nullptr);
        DestroyWindow(m_hWnd);
    }
}

void CWndCommon::SetControlPositions(int, int) {}

void CWndCommon::UpdateStatusBar(HWND, const POINT&) {}

HWND CWndCommon::GetWindowHandle() const
{
    return m_hWnd;
}

bool CWndCommon::OperateMessagePump(HWND hWnd)
{
    return MessagePump_RunPending(hWnd, [this](const MSG& msg) {
        NoticePointer(msg);
        return m_TabOrder.HandleMessage(m_hWnd, msg) || ForwardMainWindowKey(m_hWnd, msg);
    });
}

LRESULT CWndCommon::SendMessage_Show(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    const LRESULT result = SendMessageW(hWnd, uMessage, wParam, lParam);
    OutputDebugMessage(nullptr, L"SendMessage 0x%x to window 0x%I64x: %I64d\n", uMessage,
                       static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(hWnd)),
                       static_cast<std::int64_t>(result));
    return result;
}

RECT CWndCommon::GetBackdropRect(HWND hChild, HWND hRoot)
{
    RECT rc{};
    if (!GetClientRect(hRoot, &rc))
    {
        return {};
    }
    // Mapped as a point: in a mirrored child a rectangle would come back with its sides exchanged.
    POINT ptOrigin{0, 0};
    MapWindowPoints(hRoot, hChild, &ptOrigin, 1);
    MoveRect(&rc, ptOrigin.x, ptOrigin.y);
    return rc;
}

bool CWndCommon::Initialize(const wchar_t* sClassName, std::wstring* pDebugLog, HKEY hRegistryRoot,
                            const wchar_t* sName, HINSTANCE hInstance, void (*pTranslate)(CDataCube*, unsigned char),
                            unsigned char byLanguage, unsigned short uIconId, int iCursorNormal, int iCursorWait,
                            int iBackdropPicture, int iBackdropPictureRtl, EnumPicDrawMode eDrawMode)
{
    if (sClassName == nullptr || *sClassName == L'\0' || hInstance == nullptr || !m_sClassName.IsEmpty())
    {
        return false;
    }
    ThreadQuit_Forget();
    m_Com.Enter();
    m_sClassName = sClassName;
    m_pDebugLog = pDebugLog;
    m_hInstance = hInstance;
    const unsigned char byChosen = ChooseLanguage(hRegistryRoot, sName, byLanguage);
    m_StringResource.Initialize(pTranslate, byChosen, IsRightToLeft(byChosen));
    m_hIconLarge = LoadSharedIcon(hInstance, uIconId, true);
    m_hIconSmall = LoadSharedIcon(hInstance, uIconId, false);
    m_hCursorNormal = LoadCursorOrSystem(hInstance, iCursorNormal, IDC_ARROW);
    m_hCursorWait = LoadCursorOrSystem(hInstance, iCursorWait, IDC_WAIT);
    m_FontOwner = MakeGuiFont();
    m_hFontGui = m_FontOwner ? m_FontOwner.Get() : static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
    m_eDrawMode = eDrawMode;
    LoadBackdrop(m_StringResource.IsRightToLeft() ? iBackdropPictureRtl : iBackdropPicture);
    // The grip at the end of a status bar is as wide as a scroll bar: texts must not cover it.
    m_byMargin = static_cast<unsigned char>(GetSystemMetrics(SM_CXVSCROLL));
    return true;
}

bool CWndCommon::Initialize(const wchar_t* sClassName, const CWndCommon* pParent, HINSTANCE hInstance)
{
    if (sClassName == nullptr || *sClassName == L'\0' || pParent == nullptr || hInstance == nullptr ||
        !m_sClassName.IsEmpty())
    {
        return false;
    }
    m_sClassName = sClassName;
    m_hInstance = hInstance;
    m_pParent = pParent;
    m_pDebugLog = pParent->m_pDebugLog;
    m_StringResource = pParent->m_StringResource;
    m_hIconLarge = pParent->m_hIconLarge;
    m_hIconSmall = pParent->m_hIconSmall;
    m_hCursorNormal = pParent->m_hCursorNormal;
    m_hCursorWait = pParent->m_hCursorWait;
    m_hBackgroundBrush = pParent->m_hBackgroundBrush;
    m_hFontGui = pParent->m_hFontGui;
    m_crBackground = pParent->m_crBackground;
    m_crForeground = pParent->m_crForeground;
    m_crSecond = pParent->m_crSecond;
    m_bControlFlag = pParent->m_bControlFlag;
    m_picBackdrop = pParent->m_picBackdrop;
    m_eDrawMode = pParent->m_eDrawMode;
    m_byMargin = pParent->m_byMargin;
    return true;
}

void CWndCommon::LoadBackdrop(int iPicture)
{
    if (m_picBackdrop.LoadFromResource(m_hInstance, iPicture))
    {
        return;
    }
    const std::vector<std::uint32_t> pixels = MakeBackdropTexture();
    m_picBackdrop.CreateFromPixels(c_iBackdropTextureLength, c_iBackdropTextureLength, pixels.data());
}

bool CWndCommon::OwnsWindow(HWND hWnd) const
{
    return m_hWnd != nullptr && hWnd != nullptr && (hWnd == m_hWnd || IsChild(m_hWnd, hWnd));
}

// While a control has captured the mouse, it gets every movement, wherever the pointer is: these messages are ignored.
void CWndCommon::NoticePointer(const MSG& msg)
{
    if (msg.message == WM_MOUSELEAVE && msg.hwnd == m_hHovered)
    {
        m_hHovered = nullptr;
        UpdateStatusBar(nullptr, msg.pt);
        return;
    }
    if (msg.message != WM_MOUSEMOVE || msg.hwnd == m_hHovered || GetCapture() != nullptr || !OwnsWindow(msg.hwnd))
    {
        return;
    }
    m_hHovered = msg.hwnd;
    TRACKMOUSEEVENT track{};
    track.cbSize = sizeof(track);
    track.dwFlags = TME_LEAVE;
    track.hwndTrack = msg.hwnd;
    TrackMouseEvent(&track);
    UpdateStatusBar(msg.hwnd, msg.pt);
}
