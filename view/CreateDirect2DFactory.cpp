#include "view/CreateDirect2DFactory.h"

#include <d2d1.h>

#include <bit>

namespace
{

using D2D1CreateFactoryFunction = HRESULT(WINAPI*)(D2D1_FACTORY_TYPE, REFIID, const D2D1_FACTORY_OPTIONS*, void**);

// Never freed: objects of the library may outlive their users.
HMODULE LoadDirect2D()
{
    return LoadLibraryExW(L"d2d1.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
}

} // namespace

HRESULT CreateDirect2DFactory(ID2D1Factory** ppFactory)
{
    const HMODULE hModule = LoadDirect2D();
    if (hModule == nullptr)
    {
        return HRESULT_FROM_WIN32(ERROR_MOD_NOT_FOUND);
    }
    const FARPROC pProcedure = GetProcAddress(hModule, "D2D1CreateFactory");
    if (pProcedure == nullptr)
    {
        return HRESULT_FROM_WIN32(ERROR_PROC_NOT_FOUND);
    }
    const auto pCreate = std::bit_cast<D2D1CreateFactoryFunction>(pProcedure);
    return pCreate(D2D1_FACTORY_TYPE_SINGLE_THREADED, __uuidof(ID2D1Factory), nullptr,
                   reinterpret_cast<void**>(ppFactory));
}
