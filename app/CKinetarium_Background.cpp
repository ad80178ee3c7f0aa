#include "app/CKinetarium.h"
#include "classes/windows/drawing/OffScreenDrawing.h"
#include "classes/windows/system/Handles.h"
#include "classes/windows/system/RectHelpers.h"
#include "diagnostics/Guard.h"

// Draws the backdrop and the version text between the parts of the window.

void CKinetarium::OnEraseBackground()
{
    Traced({m_pDebugLog, __TIMESTAMP__}, [&] {
        RECT rcClient{};
        if (!m_bInitialised || !GetClientRect(m_hWnd, &rcClient))
        {
            return;
        }
        if (GetRectWidth(rcClient) != GetRectWidth(m_rcLastClient) ||
            GetRectHeight(rcClient) != GetRectHeight(m_rcLastClient))
        {
            SetControlPositions(rcClient.right, rcClient.bottom);
            m_rcLastClient = rcClient;
            GetBackdrop()->SetDrawingRect(&rcClient);
        }
        PaintBackground(rcClient);
    });
}

// Draws off-screen first, so that no half-drawn background ever shows. The system clips the child windows out of the
// copy.
void CKinetarium::PaintBackground(const RECT& rcClient)
{
    const CWindowDc windowDc(m_hWnd);
    DrawOffScreen(windowDc.Get(), rcClient, [this](HDC hDc) {
        GetBackdrop()->DrawByMode(hDc, GetDrawMode());
        if (!m_bFullscreen)
        {
            m_VersionText.Draw(hDc);
        }
    });
}
