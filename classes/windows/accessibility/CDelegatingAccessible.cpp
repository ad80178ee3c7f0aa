#include "classes/windows/accessibility/CDelegatingAccessible.h"

#include <utility>

LRESULT CDelegatingAccessible::Answer(WPARAM wParam, CDelegatingAccessible* pObject)
{
    const CComPtr<CDelegatingAccessible> pOwned(pObject);
    return LresultFromObject(__uuidof(IAccessible), wParam, pObject);
}

CComPtr<IAccessible> CDelegatingAccessible::MakeStandard(HWND hWnd)
{
    CComPtr<IAccessible> pStandard;
    CreateStdAccessibleObject(hWnd, OBJID_CLIENT, __uuidof(IAccessible), reinterpret_cast<void**>(pStandard.Receive()));
    return pStandard;
}

CDelegatingAccessible::CDelegatingAccessible(HWND hWnd, CComPtr<IAccessible> pStandard)
    : m_hWnd(hWnd), m_pStandard(std::move(pStandard))
{
}

CDelegatingAccessible::~CDelegatingAccessible() = default;

bool CDelegatingAccessible::IsSelf(const VARIANT& id)
{
    return id.vt == VT_I4 && id.lVal == CHILDID_SELF;
}

HRESULT CDelegatingAccessible::ReturnText(const CWString& sText, BSTR* psResult)
{
    *psResult = nullptr;
    if (sText.IsEmpty())
    {
        return S_FALSE;
    }
    *psResult = SysAllocStringLen(sText.c_str(), static_cast<UINT>(sText.GetLength()));
    return *psResult != nullptr ? S_OK : E_OUTOFMEMORY;
}

HRESULT CDelegatingAccessible::ReturnNumber(LONG iValue, VARIANT* pResult)
{
    pResult->vt = VT_I4;
    pResult->lVal = iValue;
    return S_OK;
}

HRESULT CDelegatingAccessible::ReturnWindowState(VARIANT* pState) const
{
    LONG iState = IsWindowVisible(m_hWnd) ? 0 : STATE_SYSTEM_INVISIBLE;
    iState |= IsWindowEnabled(m_hWnd) ? STATE_SYSTEM_FOCUSABLE : STATE_SYSTEM_UNAVAILABLE;
    if (GetFocus() == m_hWnd)
    {
        iState |= STATE_SYSTEM_FOCUSED;
    }
    return ReturnNumber(iState, pState);
}

HRESULT CDelegatingAccessible::QueryInterface(REFIID iid, void** ppObject)
{
    if (ppObject == nullptr)
    {
        return E_POINTER;
    }
    *ppObject = nullptr;
    if (iid != __uuidof(IUnknown) && iid != __uuidof(IDispatch) && iid != __uuidof(IAccessible))
    {
        return E_NOINTERFACE;
    }
    *ppObject = static_cast<IAccessible*>(this);
    AddRef();
    return S_OK;
}

ULONG CDelegatingAccessible::AddRef()
{
    return ++m_uReferences;
}

ULONG CDelegatingAccessible::Release()
{
    const ULONG uLeft = --m_uReferences;
    if (uLeft == 0)
    {
        delete this;
    }
    return uLeft;
}

// All methods below return the system's answer.

HRESULT CDelegatingAccessible::GetTypeInfoCount(UINT* pCount)
{
    return m_pStandard->GetTypeInfoCount(pCount);
}

HRESULT CDelegatingAccessible::GetTypeInfo(UINT uIndex, LCID lcid, ITypeInfo** ppInfo)
{
    return m_pStandard->GetTypeInfo(uIndex, lcid, ppInfo);
}

HRESULT CDelegatingAccessible::GetIDsOfNames(REFIID iid, LPOLESTR* psNames, UINT uCount, LCID lcid, DISPID* pIds)
{
    return m_pStandard->GetIDsOfNames(iid, psNames, uCount, lcid, pIds);
}

HRESULT CDelegatingAccessible::Invoke(DISPID id, REFIID iid, LCID lcid, WORD uFlags, DISPPARAMS* pParameters,
                                      VARIANT* pResult, EXCEPINFO* pException, UINT* pArgument)
{
    return m_pStandard->Invoke(id, iid, lcid, uFlags, pParameters, pResult, pException, pArgument);
}

HRESULT CDelegatingAccessible::get_accParent(IDispatch** ppParent)
{
    return m_pStandard->get_accParent(ppParent);
}

HRESULT CDelegatingAccessible::get_accChildCount(LONG* pCount)
{
    return m_pStandard->get_accChildCount(pCount);
}

HRESULT CDelegatingAccessible::get_accChild(VARIANT id, IDispatch** ppChild)
{
    return m_pStandard->get_accChild(id, ppChild);
}

HRESULT CDelegatingAccessible::get_accName(VARIANT id, BSTR* psName)
{
    return m_pStandard->get_accName(id, psName);
}

HRESULT CDelegatingAccessible::get_accValue(VARIANT id, BSTR* psValue)
{
    return m_pStandard->get_accValue(id, psValue);
}

HRESULT CDelegatingAccessible::get_accDescription(VARIANT id, BSTR* psDescription)
{
    return m_pStandard->get_accDescription(id, psDescription);
}

HRESULT CDelegatingAccessible::get_accRole(VARIANT id, VARIANT* pRole)
{
    return m_pStandard->get_accRole(id, pRole);
}

HRESULT CDelegatingAccessible::get_accState(VARIANT id, VARIANT* pState)
{
    return m_pStandard->get_accState(id, pState);
}

HRESULT CDelegatingAccessible::get_accHelp(VARIANT id, BSTR* psHelp)
{
    return m_pStandard->get_accHelp(id, psHelp);
}

HRESULT CDelegatingAccessible::get_accHelpTopic(BSTR* psFile, VARIANT id, LONG* pTopic)
{
    return m_pStandard->get_accHelpTopic(psFile, id, pTopic);
}

HRESULT CDelegatingAccessible::get_accKeyboardShortcut(VARIANT id, BSTR* psShortcut)
{
    return m_pStandard->get_accKeyboardShortcut(id, psShortcut);
}

HRESULT CDelegatingAccessible::get_accFocus(VARIANT* pId)
{
    return m_pStandard->get_accFocus(pId);
}

HRESULT CDelegatingAccessible::get_accSelection(VARIANT* pId)
{
    return m_pStandard->get_accSelection(pId);
}

HRESULT CDelegatingAccessible::get_accDefaultAction(VARIANT id, BSTR* psAction)
{
    return m_pStandard->get_accDefaultAction(id, psAction);
}

HRESULT CDelegatingAccessible::accSelect(LONG iFlags, VARIANT id)
{
    return m_pStandard->accSelect(iFlags, id);
}

HRESULT CDelegatingAccessible::accLocation(LONG* pLeft, LONG* pTop, LONG* pWidth, LONG* pHeight, VARIANT id)
{
    return m_pStandard->accLocation(pLeft, pTop, pWidth, pHeight, id);
}

HRESULT CDelegatingAccessible::accNavigate(LONG iDirection, VARIANT start, VARIANT* pEnd)
{
    return m_pStandard->accNavigate(iDirection, start, pEnd);
}

HRESULT CDelegatingAccessible::accHitTest(LONG x, LONG y, VARIANT* pId)
{
    return m_pStandard->accHitTest(x, y, pId);
}

HRESULT CDelegatingAccessible::accDoDefaultAction(VARIANT id)
{
    return m_pStandard->accDoDefaultAction(id);
}

HRESULT CDelegatingAccessible::put_accName(VARIANT id, BSTR sName)
{
    return m_pStandard->put_accName(id, sName);
}

HRESULT CDelegatingAccessible::put_accValue(VARIANT id, BSTR sValue)
{
    return m_pStandard->put_accValue(id, sValue);
}
