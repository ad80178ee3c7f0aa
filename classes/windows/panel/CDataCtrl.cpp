#include "classes/windows/panel/CDataCtrl.h"

#include "classes/core/EntryText.h"
#include "classes/windows/accessibility/AccessibleName.h"
#include "classes/windows/drawing/SystemLooks.h"
#include "classes/windows/system/RectHelpers.h"
#include "classes/windows/system/WindowText.h"

#include <algorithm>
#include <string>

namespace
{
constexpr int c_iEntryInset = 6; // from the frame's edge to the letters, in pixels

// The edit control writes at the top of its area. So it is made as high as its letters and centred in its frame.
CRect GetEntryRect(const CRect& rcFrame, HFONT hFont)
{
    const int iHeight = std::min(GetFontHeight(hFont), rcFrame.GetHeight() - 2);
    CRect rc = rcFrame;
    rc.left += c_iEntryInset;
    rc.right -= c_iEntryInset;
    rc.top += (rcFrame.GetHeight() - iHeight) / 2;
    rc.bottom = rc.top + iHeight;
    return rc;
}

// Copies no bits: the backdrop behind a window does not move with it, so every moved window is drawn anew.
HDWP PlaceWindow(HDWP hDefer, HWND hWnd, const CRect& rc, int iScroll)
{
    if (hDefer == nullptr || hWnd == nullptr)
    {
        return hDefer;
    }
    return DeferWindowPos(hDefer, hWnd, nullptr, rc.left, rc.top - iScroll, rc.GetWidth(), rc.GetHeight(),
                          SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS | SWP_NOOWNERZORDER);
}
} // namespace

CDataCtrl::CDataCtrl(IPanelHost& host, short iIndex, const CDataCtrlSpec& spec)
    : m_host(host), m_iIndex(iIndex), m_spec(spec)
{
}

CDataCtrl::~CDataCtrl()
{
    for (const HWND hWnd :
         {m_pEntry ? m_pEntry->GetWindowHandle() : nullptr, m_pList ? m_pList->GetWindowHandle() : nullptr})
    {
        if (hWnd != nullptr)
        {
            ClearAccessibleName(hWnd);
        }
    }
}

bool CDataCtrl::Create(CWndCommon* pPanel, short iId)
{
    if (m_spec.eType == EnumDataCtrlType::Divider)
    {
        return true;
    }
    CLabelLook look;
    look.crText = m_spec.crText;
    look.crShadow = m_spec.crShadow;
    look.bTransparent = m_spec.bTransparent;
    look.bHeading = m_spec.eType == EnumDataCtrlType::Heading;
    m_pLabel = std::make_unique<CPanelLabel>(m_host);
    if (!m_pLabel->Create(m_spec.sLabel, look) || !CreateControl(pPanel, iId))
    {
        return false;
    }
    m_pLabel->SetPartner(GetControlWindow());
    SetState(m_spec.eState);
    return true;
}

bool CDataCtrl::CreateControl(CWndCommon* pPanel, short iId)
{
    switch (m_spec.eType)
    {
    case EnumDataCtrlType::ColourButton:
        return CreateButton(pPanel, iId);
    case EnumDataCtrlType::DropDownList:
        m_pList = std::make_unique<CPanelList>(m_host, m_iIndex);
        if (!m_pList->Create(iId))
        {
            return false;
        }
        break;
    case EnumDataCtrlType::NumberEntry:
    case EnumDataCtrlType::FactorEntry:
        m_pEntry = std::make_unique<CPanelEntry>(m_host, m_iIndex);
        if (!m_pEntry->Create(iId, m_spec.eType == EnumDataCtrlType::NumberEntry, m_spec.uSize))
        {
            return false;
        }
        break;
    default:
        return m_spec.eType == EnumDataCtrlType::Heading;
    }
    const bool bNamed = SetAccessibleName(GetControlWindow(), m_spec.sLabel, m_spec.sDesc);
    if (m_pList && !bNamed)
    {
        m_pList->SetOwnAccessibleName(m_spec.sLabel, m_spec.sDesc);
    }
    return true;
}

bool CDataCtrl::CreateButton(CWndCommon* pPanel, short iId)
{
    m_pButton = std::make_unique<CWndButton>();
    m_pButton->SetSwatch(true);
    m_pButton->SetAccessibleName(m_spec.sLabel);
    m_pButton->SetAccessibleDescription(m_spec.sDesc);
    if (!m_pButton->Initialize(m_host.Host_GetInstance(), pPanel, false, nullptr, CWString(), nullptr, true, nullptr))
    {
        return false;
    }
    SetWindowLongPtrW(m_pButton->GetWindowHandle(), GWLP_ID, iId);
    return true;
}

void CDataCtrl::SetState(EnumShowState eState)
{
    m_spec.eState = eState;
    const bool bGreyed = eState == EnumShowState::Greyed;
    if (m_pLabel)
    {
        m_pLabel->SetGreyed(bGreyed);
    }
    const HWND hControl = GetControlWindow();
    if (hControl == nullptr || (IsWindowEnabled(hControl) != FALSE) != bGreyed)
    {
        return;
    }
    // Takes the focus away from a control that no longer accepts keys.
    if (bGreyed && GetFocus() == hControl)
    {
        SetFocus(GetAncestor(hControl, GA_ROOT));
    }
    EnableWindow(hControl, !bGreyed);
}

HWND CDataCtrl::GetLabelWindow() const
{
    return m_pLabel ? m_pLabel->GetWindowHandle() : nullptr;
}

HWND CDataCtrl::GetControlWindow() const
{
    if (m_pEntry)
    {
        return m_pEntry->GetWindowHandle();
    }
    if (m_pList)
    {
        return m_pList->GetWindowHandle();
    }
    return m_pButton ? m_pButton->GetWindowHandle() : nullptr;
}

bool CDataCtrl::Owns(HWND hWnd) const
{
    const HWND hControl = GetControlWindow();
    return hWnd != nullptr &&
           (hWnd == GetLabelWindow() || hWnd == hControl || (hControl != nullptr && IsChild(hControl, hWnd)));
}

HDWP CDataCtrl::Place(HDWP hDefer, const CPanelRow& row, int iScroll) const
{
    hDefer = PlaceWindow(hDefer, GetLabelWindow(), row.rcLabel, iScroll);
    if (m_pEntry)
    {
        return PlaceWindow(hDefer, GetControlWindow(), GetEntryRect(row.rcControl, m_host.Host_GetFont(false)),
                           iScroll);
    }
    if (!m_pList)
    {
        return PlaceWindow(hDefer, GetControlWindow(), row.rcControl, iScroll);
    }
    // This is the height of the open list; SetClosedHeight sets that of the closed one.
    m_pList->SetClosedHeight(row.rcControl.GetHeight());
    constexpr int c_iOpenHeight = 200;
    CRect rcOpen = row.rcControl;
    rcOpen.bottom = rcOpen.top + c_iOpenHeight;
    return PlaceWindow(hDefer, GetControlWindow(), rcOpen, iScroll);
}

bool CDataCtrl::SetText(const CWString& sText)
{
    if (!m_pList)
    {
        return GetControlWindow() != nullptr && SetWindowTextW(GetControlWindow(), sText.c_str());
    }
    const HWND hList = m_pList->GetWindowHandle();
    const LRESULT iItem =
        SendMessageW(hList, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(sText.c_str()));
    if (iItem < 0)
    {
        return false;
    }
    SendMessageW(hList, CB_SETCURSEL, static_cast<WPARAM>(iItem), 0);
    return true;
}

CWString CDataCtrl::GetText() const
{
    return GetControlWindow() != nullptr ? ReadWindowText(GetControlWindow()) : CWString();
}

std::int64_t CDataCtrl::GetNumber(std::int64_t iLow, std::int64_t iHigh) const
{
    if (m_pButton)
    {
        return std::clamp<std::int64_t>(m_pButton->GetBackground(), iLow, iHigh);
    }
    if (m_pList)
    {
        return std::clamp<std::int64_t>(SendMessageW(m_pList->GetWindowHandle(), CB_GETCURSEL, 0, 0), iLow, iHigh);
    }
    return ReadLeadingNumber(GetText().Get(), iLow, iHigh);
}
