#include "app/CKinetarium.h"
#include "diagnostics/Guard.h"

#include <commdlg.h>

namespace
{
constexpr std::size_t c_uCustomColours = 16; // as many as the system's dialog shows
} // namespace

COLORREF CKinetarium::GetButtonColour(const wchar_t* sKey)
{
    CWndButton* pButton = m_pDataCtrlGroup->GetButton(m_pDataCtrlGroup->GetCtrlIndex(GetText(sKey)));
    return pButton != nullptr ? pButton->GetBackground() : 0;
}

void CKinetarium::SetButtonColour(const wchar_t* sKey, COLORREF crColour)
{
    CWndButton* pButton = m_pDataCtrlGroup->GetButton(m_pDataCtrlGroup->GetCtrlIndex(GetText(sKey)));
    if (pButton != nullptr)
    {
        pButton->SetBackground(crColour, crColour, true, true, true);
    }
}

bool CKinetarium::SetColour(short iControl)
{
    return Traced({m_pDebugLog, __TIMESTAMP__}, false, [&] {
        CWndButton* pButton = m_pDataCtrlGroup->GetButton(iControl);
        if (pButton == nullptr)
        {
            return false;
        }

        // Custom colours start black every time: they are not part of the settings.
        std::array<COLORREF, c_uCustomColours> customColours{};
        CHOOSECOLORW choice{};
        choice.lStructSize = sizeof choice;
        choice.hwndOwner = m_hWnd;
        choice.rgbResult = pButton->GetBackground();
        choice.lpCustColors = customColours.data();
        choice.Flags = CC_RGBINIT | CC_FULLOPEN | CC_ANYCOLOR;
        const bool bChosen = ChooseColorW(&choice) != FALSE;
        // The dialog's message loop also dispatches a close, so the window can be gone by now.
        if (!m_bInitialised)
        {
            return false;
        }
        SetFocus(pButton->GetWindowHandle());
        if (!bChosen)
        {
            return false;
        }
        pButton->SetBackground(choice.rgbResult, choice.rgbResult, true, true, true);
        return true;
    });
}
