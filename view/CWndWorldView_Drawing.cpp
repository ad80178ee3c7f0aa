#include "view/CWndWorldView.h"

#include "classes/windows/system/RectHelpers.h"
#include "diagnostics/Guard.h"

namespace
{

RECT GetClientRectOnScreen(HWND hWnd)
{
    RECT rc{};
    POINT ptOrigin{};
    ClientToScreen(hWnd, &ptOrigin);
    GetClientRect(hWnd, &rc);
    MoveRect(&rc, ptOrigin.x, ptOrigin.y);
    return rc;
}

} // namespace

void CWndWorldView::OnEraseBackground()
{
    Traced({m_pDebugLog, __TIMESTAMP__}, [&] {
        if (!m_bWindowReady || m_bChangingBars)
        {
            return;
        }
        CheckLayout();
        if (HasPixels())
        {
            ChoosePainter().PaintFrame(MakeFrame());
        }
    });
}

// False while the parent is minimised or leaves the view no room. Drawing an empty backdrop fails in Direct2D, which
// would then be out of use until the next run.
bool CWndWorldView::HasPixels() const
{
    const CSize<int> sizeClient = GetClientSize();
    return sizeClient.cx > 0 && sizeClient.cy > 0 && m_sizeParentClient.cx > 0 && m_sizeParentClient.cy > 0;
}

// Looks for a change of size before each frame, because its message may not have arrived yet: the backdrop must
// continue the parent's without a seam, and the world must be placed for the area that is drawn.
void CWndWorldView::CheckLayout()
{
    RECT rcParent = GetClientRectOnScreen(GetParentHandle());
    RECT rcWindow{};
    GetWindowRect(m_hWnd, &rcWindow);
    const int iWidth = GetRectWidth(rcWindow);
    const int iHeight = GetRectHeight(rcWindow);
    const CSize<int> sizeParent{GetRectWidth(rcParent), GetRectHeight(rcParent)};
    if (iWidth == m_rcWindow.right && iHeight == m_rcWindow.bottom && sizeParent == m_sizeParentClient)
    {
        return;
    }
    m_rcWindow = RECT{0, 0, iWidth, iHeight};
    m_sizeParentClient = sizeParent;
    MoveRect(&rcParent, -rcWindow.left, -rcWindow.top);
    m_picBackdrop.SetDrawingRect(&rcParent);
    SetControlPositions(iWidth, iHeight);
}

CFrame CWndWorldView::MakeFrame() const
{
    const CRect rcWorld = GetWorldRect();
    RECT rcClient{};
    GetClientRect(m_hWnd, &rcClient);
    CFrame frame;
    frame.hWnd = m_hWnd;
    frame.sizeWindow = SIZE{m_rcWindow.right, m_rcWindow.bottom};
    frame.pBackdrop = GetBackdrop();
    frame.eBackdropMode = m_eDrawMode;
    frame.pWorld = &m_picWorld;
    frame.scene.pAtoms = m_pAtoms->GetAtoms();
    frame.scene.count = m_pAtoms->GetCount();
    frame.scene.fAverageSpeed = m_pAtoms->GetAvgVelocity();
    frame.scene.eMode = m_eColourMode;
    frame.scene.settings = m_pAtomColourSettings;
    frame.scene.rcVisible = ToRect(rcClient);
    frame.scene.ptWorld = CPoint<int>{rcWorld.left, rcWorld.top};
    return frame;
}

// CPicture draws with Direct2D only tiled: GDI draws the backdrops of all other modes.
IPainter& CWndWorldView::ChoosePainter()
{
    if (m_painterDirect2D.HasRenderTarget() && m_eDrawMode == EnumPicDrawMode::Tiled)
    {
        return m_painterDirect2D;
    }
    return m_painterGdi;
}
