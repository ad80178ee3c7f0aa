#include "classes/windows/button/ButtonAccessible.h"

#include "classes/core/CColour.h"
#include "classes/windows/accessibility/CDelegatingAccessible.h"
#include "classes/windows/button/CWndButton.h"
#include "classes/windows/system/WndProcForward.h"

#include <utility>

namespace
{
// The button behind the window; null once it is gone.
CWndButton* GetButtonOf(HWND hWnd)
{
    constexpr int c_iRoom = 32;
    wchar_t sClass[c_iRoom]{};
    if (!IsWindow(hWnd) || GetClassNameW(hWnd, sClass, c_iRoom) == 0 || lstrcmpW(sClass, c_sButtonClass) != 0)
    {
        return nullptr;
    }
    return WndProc_GetObject<CWndButton>(hWnd);
}

// A swatch's value is its colour, written as on the web.
CWString GetValueText(const CWndButton& button)
{
    CWString sColour;
    const COLORREF cr = button.GetBackground();
    if (button.IsSwatch())
    {
        sColour.Format(L"#%02X%02X%02X", unsigned{GetRed(cr)}, unsigned{GetGreen(cr)}, unsigned{GetBlue(cr)});
    }
    return sColour;
}

class CButtonAccessible final : public CDelegatingAccessible
{
public:
    using CDelegatingAccessible::CDelegatingAccessible;

    HRESULT STDMETHODCALLTYPE get_accName(VARIANT id, BSTR* psName) override
    {
        return AnswerText(id, psName, [](const CWndButton& button) { return button.GetAccessibleName(); });
    }
    HRESULT STDMETHODCALLTYPE get_accValue(VARIANT id, BSTR* psValue) override
    {
        return AnswerText(id, psValue, GetValueText);
    }
    HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT id, BSTR* psDescription) override
    {
        return AnswerText(id, psDescription,
                          [](const CWndButton& button) { return button.GetAccessibleDescription(); });
    }
    HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT id, BSTR* psAction) override
    {
        return AnswerText(id, psAction, [](const CWndButton&) { return CWString(L"Press"); });
    }
    HRESULT STDMETHODCALLTYPE get_accRole(VARIANT id, VARIANT* pRole) override
    {
        return pRole != nullptr && IsSelf(id) ? ReturnNumber(ROLE_SYSTEM_PUSHBUTTON, pRole) : E_INVALIDARG;
    }
    HRESULT STDMETHODCALLTYPE get_accState(VARIANT id, VARIANT* pState) override
    {
        return pState != nullptr && IsSelf(id) ? ReturnWindowState(pState) : E_INVALIDARG;
    }
    // Posted, not sent: what the click starts (a dialog, a run) must not keep the screen reader waiting.
    HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT id) override
    {
        if (!IsSelf(id))
        {
            return E_INVALIDARG;
        }
        return PostMessageW(GetHwnd(), BM_CLICK, 0, 0) ? S_OK : CO_E_OBJNOTCONNECTED;
    }

private:
    template<class TText>
    HRESULT AnswerText(const VARIANT& id, BSTR* psResult, TText&& text) const noexcept
    {
        if (psResult == nullptr || !IsSelf(id))
        {
            return E_INVALIDARG;
        }
        *psResult = nullptr;
        const CWndButton* const pButton = GetButtonOf(GetHwnd());
        if (pButton == nullptr)
        {
            return CO_E_OBJNOTCONNECTED;
        }
        try
        {
            return ReturnText(text(*pButton), psResult);
        }
        catch (...)
        {
            ReportWindowException(pButton->GetDebugLog());
        }
        return E_OUTOFMEMORY;
    }
};
} // namespace

LRESULT ButtonAccessible_Answer(HWND hButton, WPARAM wParam)
{
    CComPtr<IAccessible> pStandard = CDelegatingAccessible::MakeStandard(hButton);
    if (!pStandard)
    {
        return 0;
    }
    return CDelegatingAccessible::Answer(wParam, new CButtonAccessible(hButton, std::move(pStandard)));
}
