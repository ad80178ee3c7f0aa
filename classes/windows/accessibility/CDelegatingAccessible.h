#pragma once

#include <windows.h>

#include <oleauto.h>

#include <oleacc.h>

#include <atomic>

#include "classes/core/CWString.h"
#include "classes/windows/system/Handles.h"

// Only Release destroys COM objects: their interfaces have no virtual destructor and need none.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

// The object that a screen reader gets for a window. It passes every question on to the system's own object for that
// window. Derived classes answer the questions that the system cannot answer. No method may throw: the caller may be in
// another process.
class CDelegatingAccessible : public IAccessible
{
public:
    // Answers WM_GETOBJECT with the object and gives up the caller's reference to it.
    static LRESULT Answer(WPARAM wParam, CDelegatingAccessible* pObject);
    // The system's own object for the window's client area; null when there is none.
    static CComPtr<IAccessible> MakeStandard(HWND hWnd);

    CDelegatingAccessible(HWND hWnd, CComPtr<IAccessible> pStandard);
    CDelegatingAccessible(const CDelegatingAccessible&) = delete;
    CDelegatingAccessible& operator=(const CDelegatingAccessible&) = delete;
    virtual ~CDelegatingAccessible();

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** ppObject) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* pCount) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT uIndex, LCID lcid, ITypeInfo** ppInfo) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* psNames, UINT uCount, LCID lcid,
                                            DISPID* pIds) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID lcid, WORD uFlags, DISPPARAMS* pParameters,
                                     VARIANT* pResult, EXCEPINFO* pException, UINT* pArgument) override;
    HRESULT STDMETHODCALLTYPE get_accParent(IDispatch** ppParent) override;
    HRESULT STDMETHODCALLTYPE get_accChildCount(LONG* pCount) override;
    HRESULT STDMETHODCALLTYPE get_accChild(VARIANT id, IDispatch** ppChild) override;
    HRESULT STDMETHODCALLTYPE get_accName(VARIANT id, BSTR* psName) override;
    HRESULT STDMETHODCALLTYPE get_accValue(VARIANT id, BSTR* psValue) override;
    HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT id, BSTR* psDescription) override;
    HRESULT STDMETHODCALLTYPE get_accRole(VARIANT id, VARIANT* pRole) override;
    HRESULT STDMETHODCALLTYPE get_accState(VARIANT id, VARIANT* pState) override;
    HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT id, BSTR* psHelp) override;
    HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR* psFile, VARIANT id, LONG* pTopic) override;
    HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT id, BSTR* psShortcut) override;
    HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* pId) override;
    HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* pId) override;
    HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT id, BSTR* psAction) override;
    HRESULT STDMETHODCALLTYPE accSelect(LONG iFlags, VARIANT id) override;
    HRESULT STDMETHODCALLTYPE accLocation(LONG* pLeft, LONG* pTop, LONG* pWidth, LONG* pHeight, VARIANT id) override;
    HRESULT STDMETHODCALLTYPE accNavigate(LONG iDirection, VARIANT start, VARIANT* pEnd) override;
    HRESULT STDMETHODCALLTYPE accHitTest(LONG x, LONG y, VARIANT* pId) override;
    HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT id) override;
    HRESULT STDMETHODCALLTYPE put_accName(VARIANT id, BSTR sName) override;
    HRESULT STDMETHODCALLTYPE put_accValue(VARIANT id, BSTR sValue) override;

protected:
    // True if the question is about the window itself, not about a part of it.
    static bool IsSelf(const VARIANT& id);
    // Returns S_FALSE for an empty text, as the interface requires.
    static HRESULT ReturnText(const CWString& sText, BSTR* psResult);
    static HRESULT ReturnNumber(LONG iValue, VARIANT* pResult);
    // The window's present state: invisible, unavailable, focusable, focused.
    HRESULT ReturnWindowState(VARIANT* pState) const;
    HWND GetHwnd() const { return m_hWnd; }

private:
    std::atomic<ULONG> m_uReferences{1};
    HWND m_hWnd;
    CComPtr<IAccessible> m_pStandard;
};
#pragma GCC diagnostic pop
