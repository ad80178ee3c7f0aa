#include "classes/windows/accessibility/AccessibleName.h"

#include "classes/windows/system/Handles.h"

#include <objbase.h>
#include <oleauto.h>

#include <oleacc.h>

#include <iterator>

namespace
{
CComPtr<IAccPropServices> GetPropertyServices()
{
    CComPtr<IAccPropServices> pServices;
    CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices,
                     reinterpret_cast<void**>(pServices.Receive()));
    return pServices;
}
} // namespace

bool SetAccessibleName(HWND hWnd, const CWString& sName, const CWString& sDescription)
{
    const CComPtr<IAccPropServices> pServices = GetPropertyServices();
    if (!pServices)
    {
        return false;
    }
    if (!sDescription.IsEmpty())
    {
        pServices->SetHwndPropStr(hWnd, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, PROPID_ACC_DESCRIPTION,
                                  sDescription.c_str());
    }
    return pServices->SetHwndPropStr(hWnd, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, PROPID_ACC_NAME,
                                     sName.c_str()) == S_OK;
}

void ClearAccessibleName(HWND hWnd)
{
    const CComPtr<IAccPropServices> pServices = GetPropertyServices();
    if (!pServices)
    {
        return;
    }
    const MSAAPROPID properties[] = {PROPID_ACC_NAME, PROPID_ACC_DESCRIPTION};
    pServices->ClearHwndProps(hWnd, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, properties,
                              static_cast<int>(std::size(properties)));
}
