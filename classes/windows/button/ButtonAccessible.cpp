#include "classes/windows/button/ButtonAccessible.h"

#include "classes/windows/accessibility/CDelegatingAccessible.h"
#include "classes/windows/system/WndProcForward.h"

#include <utility>

namespace
{
class CButtonAccessible final : public CDelegatingAccessible
{
public:
    CButtonAccessible(HWND hButton, CComPtr<IAccessible> pStandard, FindButtonFunction pFind)
        : CDelegatingAccessible(hButton, std::move(pStandard)), m_pFind(pFind)
    {
    }

    HRESULT STDMETHODCALLTYPE get_accName(VARIANT id, BSTR* psName) override
    {
        return AnswerText(id, psName, [](const IAccessibleButton& button) { return button.GetAccessibleName(); });
    }
    HRESULT STDMETHODCALLTYPE get_accValue(VARIANT id, BSTR* psValue) override
    {
        return AnswerText(id, psValue, [](const IAccessibleButton& button) { return button.GetAccessibleValue(); });
    }
    HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT id, BSTR* psDescription) override
    {
        return AnswerText(id, psDescription,
                          [](const IAccessibleButton& button) { return button.GetAccessibleDescription(); });
    }
    HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT id, BSTR* psAction) override
    {
        return AnswerText(id, psAction, [](const IAccessibleButton&) { return CWString(L"Press"); });
    }
    HRESULT STDMETHODCALLTYPE get_accRole(VARIANT id, VARIANT* pRole) override
    {
        return pRole != nullptr && IsSelf(id) ? ReturnNumber(ROLE_SYSTEM_PUSHBUTTON, pRole) : E_INVALIDARG;
    }
    HRESULT STDMETHODCALLTYPE get_accState(VARIANT id, VARIANT* pState) override
    {
        return pState != nullptr && IsSelf(id) ? ReturnWindowState(pState) : E_INVALIDARG;
    }
    // Posted, not sent: the screen reader must not wait for the dialog or the run that the click starts.
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
        const IAccessibleButton* const pButton = m_pFind(GetHwnd());
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

    FindButtonFunction m_pFind;
};
} // namespace

LRESULT ButtonAccessible_Answer(HWND hButton, WPARAM wParam, FindButtonFunction pFind)
{
    CComPtr<IAccessible> pStandard = CDelegatingAccessible::MakeStandard(hButton);
    if (!pStandard)
    {
        return 0;
    }
    return CDelegatingAccessible::Answer(wParam, new CButtonAccessible(hButton, std::move(pStandard), pFind));
}
