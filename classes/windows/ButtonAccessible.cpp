#include "classes/windows/ButtonAccessible.h"

#include "classes/core/CColour.h"
#include "classes/windows/CWndButton.h"
#include "classes/windows/Handles.h"
#include "classes/windows/WndProcForward.h"

#include <oleauto.h>

#include <oleacc.h>

#include <atomic>

namespace
{
// The button behind the window; null once it is gone.
CWndButton* GetButtonOf(HWND hWnd)
{
    constexpr int c_iRoom = 32;
    wchar_t sClass[c_iRoom]{};
    if (!IsWindow(hWnd) || GetClassNameW(hWnd, sClass, c_iRoom) == 0 || lstrcmpW(sClass, c_sButtonClass) != 0)
        return nullptr;
    return WndProc_GetObject<CWndButton>(hWnd);
}

bool IsSelf(const VARIANT& id)
{
    return id.vt == VT_I4 && id.lVal == CHILDID_SELF;
}

HRESULT ReturnText(const CWString& sText, BSTR* psResult)
{
    *psResult = nullptr;
    if (sText.IsEmpty())
        return S_FALSE;
    *psResult = SysAllocStringLen(sText.c_str(), static_cast<UINT>(sText.GetLength()));
    return *psResult != nullptr ? S_OK : E_OUTOFMEMORY;
}

// COM objects end by Release alone: their interfaces have no virtual destructor, and need none.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
#pragma GCC diagnostic ignored "-Wdelete-non-virtual-dtor"

// The system's object for the window answers what is not answered here. Nothing may be thrown to the caller, who may
// sit in another process.
class CButtonAccessible final : public IAccessible
{
public:
    CButtonAccessible(HWND hButton, CComPtr<IAccessible> pStandard)
        : m_hButton(hButton), m_pStandard(std::move(pStandard))
    {
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** ppObject) override
    {
        if (ppObject == nullptr)
            return E_POINTER;
        *ppObject = nullptr;
        if (iid != IID_IUnknown && iid != IID_IDispatch && iid != __uuidof(IAccessible))
            return E_NOINTERFACE;
        *ppObject = static_cast<IAccessible*>(this);
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_uReferences; }
    ULONG STDMETHODCALLTYPE Release() override
    {
        const ULONG uLeft = --m_uReferences;
        if (uLeft == 0)
            delete this;
        return uLeft;
    }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* pCount) override { return m_pStandard->GetTypeInfoCount(pCount); }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT uIndex, LCID lcid, ITypeInfo** ppInfo) override
    {
        return m_pStandard->GetTypeInfo(uIndex, lcid, ppInfo);
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* psNames, UINT uCount, LCID lcid,
                                            DISPID* pIds) override
    {
        return m_pStandard->GetIDsOfNames(iid, psNames, uCount, lcid, pIds);
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID lcid, WORD uFlags, DISPPARAMS* pParameters,
                                     VARIANT* pResult, EXCEPINFO* pException, UINT* pArgument) override
    {
        return m_pStandard->Invoke(id, iid, lcid, uFlags, pParameters, pResult, pException, pArgument);
    }

    HRESULT STDMETHODCALLTYPE get_accParent(IDispatch** ppParent) override
    {
        return m_pStandard->get_accParent(ppParent);
    }
    HRESULT STDMETHODCALLTYPE get_accChildCount(LONG* pCount) override
    {
        return m_pStandard->get_accChildCount(pCount);
    }
    HRESULT STDMETHODCALLTYPE get_accChild(VARIANT id, IDispatch** ppChild) override
    {
        return m_pStandard->get_accChild(id, ppChild);
    }
    HRESULT STDMETHODCALLTYPE get_accName(VARIANT id, BSTR* psName) override
    {
        return Answer(id, psName, [](const CWndButton& button) { return button.GetAccessibleName(); });
    }
    HRESULT STDMETHODCALLTYPE get_accValue(VARIANT id, BSTR* psValue) override
    {
        return Answer(id, psValue, [](const CWndButton& button) {
            CWString sColour;
            const COLORREF cr = button.GetBackground();
            if (button.IsSwatch())
                sColour.Format(L"#%02X%02X%02X", unsigned{GetRed(cr)}, unsigned{GetGreen(cr)}, unsigned{GetBlue(cr)});
            return sColour;
        });
    }
    HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT id, BSTR* psDescription) override
    {
        return Answer(id, psDescription, [](const CWndButton& button) { return button.GetAccessibleDescription(); });
    }
    HRESULT STDMETHODCALLTYPE get_accRole(VARIANT id, VARIANT* pRole) override
    {
        if (pRole == nullptr || !IsSelf(id))
            return E_INVALIDARG;
        pRole->vt = VT_I4;
        pRole->lVal = ROLE_SYSTEM_PUSHBUTTON;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE get_accState(VARIANT id, VARIANT* pState) override;
    HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT id, BSTR* psHelp) override
    {
        return m_pStandard->get_accHelp(id, psHelp);
    }
    HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR* psFile, VARIANT id, LONG* pTopic) override
    {
        return m_pStandard->get_accHelpTopic(psFile, id, pTopic);
    }
    HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT id, BSTR* psShortcut) override
    {
        return m_pStandard->get_accKeyboardShortcut(id, psShortcut);
    }
    HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* pId) override { return m_pStandard->get_accFocus(pId); }
    HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* pId) override { return m_pStandard->get_accSelection(pId); }
    HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT id, BSTR* psAction) override
    {
        return Answer(id, psAction, [](const CWndButton&) { return CWString(L"Press"); });
    }
    HRESULT STDMETHODCALLTYPE accSelect(LONG iFlags, VARIANT id) override { return m_pStandard->accSelect(iFlags, id); }
    HRESULT STDMETHODCALLTYPE accLocation(LONG* pLeft, LONG* pTop, LONG* pWidth, LONG* pHeight, VARIANT id) override
    {
        return m_pStandard->accLocation(pLeft, pTop, pWidth, pHeight, id);
    }
    HRESULT STDMETHODCALLTYPE accNavigate(LONG iDirection, VARIANT start, VARIANT* pEnd) override
    {
        return m_pStandard->accNavigate(iDirection, start, pEnd);
    }
    HRESULT STDMETHODCALLTYPE accHitTest(LONG x, LONG y, VARIANT* pId) override
    {
        return m_pStandard->accHitTest(x, y, pId);
    }
    HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT id) override;
    HRESULT STDMETHODCALLTYPE put_accName(VARIANT, BSTR) override { return E_ACCESSDENIED; }
    HRESULT STDMETHODCALLTYPE put_accValue(VARIANT, BSTR) override { return E_ACCESSDENIED; }

private:
    template<class TText>
    HRESULT Answer(const VARIANT& id, BSTR* psResult, TText&& text) noexcept
    {
        if (psResult == nullptr || !IsSelf(id))
            return E_INVALIDARG;
        *psResult = nullptr;
        const CWndButton* const pButton = GetButtonOf(m_hButton);
        if (pButton == nullptr)
            return CO_E_OBJNOTCONNECTED;
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

    std::atomic<ULONG> m_uReferences{1};
    HWND m_hButton;
    CComPtr<IAccessible> m_pStandard;
};
#pragma GCC diagnostic pop

HRESULT CButtonAccessible::get_accState(VARIANT id, VARIANT* pState)
{
    if (pState == nullptr || !IsSelf(id))
        return E_INVALIDARG;
    LONG iState = 0;
    if (!IsWindowVisible(m_hButton))
        iState |= STATE_SYSTEM_INVISIBLE;
    if (!IsWindowEnabled(m_hButton))
        iState |= STATE_SYSTEM_UNAVAILABLE;
    else
        iState |= STATE_SYSTEM_FOCUSABLE;
    if (GetFocus() == m_hButton)
        iState |= STATE_SYSTEM_FOCUSED;
    pState->vt = VT_I4;
    pState->lVal = iState;
    return S_OK;
}

// Posted, not sent: what the click starts (a dialog, a run) must not keep the screen reader waiting.
HRESULT CButtonAccessible::accDoDefaultAction(VARIANT id)
{
    if (!IsSelf(id))
        return E_INVALIDARG;
    return PostMessageW(m_hButton, BM_CLICK, 0, 0) ? S_OK : CO_E_OBJNOTCONNECTED;
}
} // namespace

LRESULT ButtonAccessible_Answer(HWND hButton, WPARAM wParam)
{
    CComPtr<IAccessible> pStandard;
    const HRESULT hr = CreateStdAccessibleObject(hButton, OBJID_CLIENT, __uuidof(IAccessible),
                                                 reinterpret_cast<void**>(pStandard.Receive()));
    if (FAILED(hr) || !pStandard)
        return 0;
    const CComPtr<IAccessible> pOwn(new CButtonAccessible(hButton, std::move(pStandard)));
    return LresultFromObject(__uuidof(IAccessible), wParam, pOwn.Get());
}
