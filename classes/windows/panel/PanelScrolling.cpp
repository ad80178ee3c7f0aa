// Places and scrolls the rows: a part of CDataCtrlGroup with a file of its own.
#include "classes/core/CFlagScope.h"
#include "classes/core/PanelLayout.h"
#include "classes/windows/panel/CDataCtrl.h"
#include "classes/windows/panel/CDataCtrlGroup.h"
#include "classes/windows/system/RectHelpers.h"
#include "classes/windows/system/ScrollBar.h"

#include <algorithm>

namespace
{
constexpr int c_iScrollBarGap = 6; // between the controls and the bar, in pixels
constexpr int c_iUsualWheelLines = 3;
constexpr int c_iWheelLineHeight = 20; // a notch of three lines moves two rows

int GetWheelLines()
{
    UINT uLines = c_iUsualWheelLines;
    SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &uLines, 0);
    constexpr UINT c_uLargest = 10; // "a page at a time" is a huge number
    return static_cast<int>(std::min(uLines, c_uLargest));
}

SIZE GetClientSize(HWND hWnd)
{
    RECT rc{};
    GetClientRect(hWnd, &rc);
    return {rc.right, rc.bottom};
}
} // namespace

CPanelLayout CDataCtrlGroup::GetLayout() const
{
    std::vector<EnumDataCtrlType> types;
    types.reserve(m_ctrls.size());
    for (const std::unique_ptr<CDataCtrl>& pCtrl : m_ctrls)
    {
        types.push_back(pCtrl->GetSpec().eType);
    }
    const bool bScrollBar = (GetWindowLongW(m_hWnd, GWL_STYLE) & WS_VSCROLL) != 0;
    const int iWidth = GetClientSize(m_hWnd).cx - (bScrollBar ? c_iScrollBarGap : 0);
    return LayOutPanel(types, iWidth, m_dLabelShare);
}

int CDataCtrlGroup::GetContentHeight() const
{
    return GetLayout().iHeight;
}

int CDataCtrlGroup::GetScrollPosition() const
{
    return GetScrollPos(m_hWnd, SB_VERT);
}

// Showing or hiding the bar changes the client area and so sends WM_SIZE in the middle of this function.
void CDataCtrlGroup::SetControlPositions(int, int)
{
    if (!m_bWindowReady || m_bLayingOut)
    {
        return;
    }
    const CFlagScope layingOut(m_bLayingOut);
    UpdateScrollBar();
    PlaceRows();
}

void CDataCtrlGroup::UpdateScrollBar()
{
    const int iContent = GetContentHeight();
    const int iPage = GetClientSize(m_hWnd).cy;
    CScrollBarState bar;
    bar.iMax = std::max(iContent - 1, 0);
    bar.iPage = std::max(iPage, 0);
    bar.iPosition = ClampScrollPosition(GetScrollPosition(), iContent, iPage);
    WriteScrollBar(m_hWnd, SB_VERT, bar);
    ShowScrollBar(m_hWnd, SB_VERT, iContent > iPage && iPage > 0);
}

void CDataCtrlGroup::PlaceRows()
{
    const CPanelLayout layout = GetLayout();
    const int iScroll = GetScrollPosition();
    HDWP hDefer = BeginDeferWindowPos(2 * GetCount());
    for (std::size_t i = 0; i < m_ctrls.size(); ++i)
    {
        hDefer = m_ctrls[i]->Place(hDefer, layout.rows[i], iScroll);
    }
    if (hDefer != nullptr)
    {
        EndDeferWindowPos(hDefer);
    }
    RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_NOERASE);
}

void CDataCtrlGroup::ScrollTo(int iPosition)
{
    const int iTarget = ClampScrollPosition(iPosition, GetContentHeight(), GetClientSize(m_hWnd).cy);
    if (iTarget == GetScrollPosition())
    {
        return;
    }
    SetScrollPos(m_hWnd, SB_VERT, iTarget, TRUE);
    {
        const CFlagScope layingOut(m_bLayingOut);
        PlaceRows();
    }
    UpdateWindow(m_hWnd); // keeps up with a dragged bar
}

// The first setting below a heading brings the heading into view with it.
void CDataCtrlGroup::EnsureVisible(short iIndex)
{
    const CPanelLayout layout = GetLayout();
    if (GetCtrl(iIndex) == nullptr)
    {
        return;
    }
    const std::size_t uRow = static_cast<std::size_t>(iIndex);
    const std::size_t uFirst =
        uRow > 0 && GetType(static_cast<short>(iIndex - 1)) == EnumDataCtrlType::Heading ? uRow - 1 : uRow;
    ScrollTo(ScrollIntoView(GetScrollPosition(), GetClientSize(m_hWnd).cy, layout.iHeight,
                            layout.rows[uFirst].rcRow.top, layout.rows[uRow].rcRow.bottom));
}

bool CDataCtrlGroup::Host_ScrollByWheel(short iDelta)
{
    if (GetContentHeight() <= GetClientSize(m_hWnd).cy)
    {
        return false;
    }
    // Fine wheels turn by less than a notch at a time: the part of a pixel is kept for the next turn.
    m_iWheelRest += iDelta * GetWheelLines() * c_iWheelLineHeight;
    const int iPixels = m_iWheelRest / WHEEL_DELTA;
    m_iWheelRest -= iPixels * WHEEL_DELTA;
    ScrollTo(GetScrollPosition() - iPixels);
    return true;
}

std::optional<LRESULT> CDataCtrlGroup::On_MouseWheel(WPARAM wParam, LPARAM)
{
    if (Host_ScrollByWheel(static_cast<short>(HIWORD(wParam))))
    {
        return 0;
    }
    return std::nullopt;
}

std::optional<LRESULT> CDataCtrlGroup::On_VScroll(WPARAM wParam, LPARAM)
{
    const CScrollBarState bar = ReadScrollBar(m_hWnd, SB_VERT);
    if (const std::optional<int> iPosition = GetScrolledPosition(bar, LOWORD(wParam), c_PanelScrollRule))
    {
        ScrollTo(*iPosition);
    }
    return 0;
}

std::optional<LRESULT> CDataCtrlGroup::On_Size(WPARAM, LPARAM)
{
    SetControlPositions(-1, -1);
    return 0;
}

// The system moves the pixels with the window, but the backdrop behind the panel must stay in place.
std::optional<LRESULT> CDataCtrlGroup::On_Move(WPARAM, LPARAM)
{
    RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_NOERASE);
    return 0;
}
