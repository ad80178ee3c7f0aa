#include "classes/windows/accessibility/ListAccessible.h"

#include "classes/windows/accessibility/CDelegatingAccessible.h"
#include "classes/windows/system/WindowText.h"
#include "classes/windows/system/WndProcForward.h"

#include <utility>

namespace
{
class CListAccessible final : public CDelegatingAccessible
{
public:
    CListAccessible(HWND hList, CComPtr<IAccessible> pStandard, CWString sName, CWString sDescription)
        : CDelegatingAccessible(hList, std::move(pStandard)),
          m_sName(std::move(sName)),
          m_sDescription(std::move(sDescription))
    {
    }

    HRESULT STDMETHODCALLTYPE get_accName(VARIANT id, BSTR* psName) override
    {
        return psName != nullptr && IsSelf(id) ? ReturnText(m_sName, psName) : E_INVALIDARG;
    }
    HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT id, BSTR* psDescription) override
    {
        return psDescription != nullptr && IsSelf(id) ? ReturnText(m_sDescription, psDescription) : E_INVALIDARG;
    }
    HRESULT STDMETHODCALLTYPE get_accRole(VARIANT id, VARIANT* pRole) override
    {
        return pRole != nullptr && IsSelf(id) ? ReturnNumber(ROLE_SYSTEM_COMBOBOX, pRole) : E_INVALIDARG;
    }
    HRESULT STDMETHODCALLTYPE get_accState(VARIANT id, VARIANT* pState) override
    {
        return pState != nullptr && IsSelf(id) ? ReturnWindowState(pState) : E_INVALIDARG;
    }
    HRESULT STDMETHODCALLTYPE get_accValue(VARIANT id, BSTR* psValue) override
    {
        if (psValue == nullptr || !IsSelf(id))
        {
            return E_INVALIDARG;
        }
        try
        {
            return ReturnText(ReadWindowText(GetHwnd()), psValue);
        }
        catch (...)
        {
            ReportWindowException(nullptr);
        }
        return E_OUTOFMEMORY;
    }

private:
    CWString m_sName;
    CWString m_sDescription;
};
} // namespace

LRESULT ListAccessible_Answer(HWND hList, WPARAM wParam, const CWString& sName, const CWString& sDescription)
{
    CComPtr<IAccessible> pStandard = CDelegatingAccessible::MakeStandard(hList);
    if (!pStandard)
    {
        return 0;
    }
    return CDelegatingAccessible::Answer(wParam, new CListAccessible(hList, std::move(pStandard), sName, sDescription));
}
