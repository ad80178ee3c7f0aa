#include "tests/view/windows/SpyFactory.h"

#include "classes/windows/system/Handles.h"
#include "tests/view/windows/Direct2DSpy.h"
#include "tests/view/windows/UnusedDirect2D.h"
#include "view/CreateDirect2DFactory.h"

#include <set>
#include <stdexcept>

namespace
{

// Reference counting of a spy: it starts with one reference, and its destruction is recorded.
class CSpyCount
{
public:
    explicit CSpyCount(const char* sName) : m_sName(sName) {}
    ULONG Add() { return ++m_uCount; }

    template<class T>
    ULONG Remove(T* pObject)
    {
        const ULONG uLeft = --m_uCount;
        if (uLeft == 0)
        {
            GetDirect2DSpy().closed.emplace_back(m_sName);
            delete pObject;
        }
        return uLeft;
    }

private:
    ULONG m_uCount = 1;
    const char* m_sName;
};

class CSpyBrush;

std::set<const ID2D1Brush*>& GetLiveBrushes()
{
    static std::set<const ID2D1Brush*> s_brushes;
    return s_brushes;
}

// COM interfaces have no virtual destructor: their objects delete themselves at the last Release.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

class CSpyBrush final : public ID2D1SolidColorBrush
{
public:
    CSpyBrush(CComPtr<ID2D1SolidColorBrush> pReal, const D2D1_COLOR_F& colour)
        : m_pReal(std::move(pReal)), m_colour(colour)
    {
        GetLiveBrushes().insert(this);
    }
    virtual ~CSpyBrush() { GetLiveBrushes().erase(this); }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return RefuseDirect2D(); }
    ULONG STDMETHODCALLTYPE AddRef() override { return m_count.Add(); }
    ULONG STDMETHODCALLTYPE Release() override { return m_count.Remove(this); }
    void STDMETHODCALLTYPE GetFactory(ID2D1Factory**) const override { RefuseDirect2D(); }
    void STDMETHODCALLTYPE SetOpacity(FLOAT) override { RefuseDirect2D(); }
    void STDMETHODCALLTYPE SetTransform(const D2D1_MATRIX_3X2_F*) override { RefuseDirect2D(); }
    FLOAT STDMETHODCALLTYPE GetOpacity() const override { return 1.0F; }
    void STDMETHODCALLTYPE GetTransform(D2D1_MATRIX_3X2_F*) const override { RefuseDirect2D(); }
    void STDMETHODCALLTYPE SetColor(const D2D1_COLOR_F* pColour) override
    {
        m_colour = *pColour;
        m_pReal->SetColor(pColour);
    }
    D2D1_COLOR_F* STDMETHODCALLTYPE GetColor(D2D1_COLOR_F* pColour) const override
    {
        *pColour = m_colour;
        return pColour;
    }

    const D2D1_COLOR_F& GetSpiedColour() const { return m_colour; }
    ID2D1SolidColorBrush* GetReal() const { return m_pReal.Get(); }

private:
    CSpyCount m_count{"brush"};
    CComPtr<ID2D1SolidColorBrush> m_pReal;
    D2D1_COLOR_F m_colour;
};

#pragma GCC diagnostic pop

// Null for brushes without a spy.
CSpyBrush* AsSpy(ID2D1Brush* pBrush)
{
    return GetLiveBrushes().count(pBrush) != 0 ? static_cast<CSpyBrush*>(pBrush) : nullptr;
}

void ResizeShownWindow(const D2D1_SIZE_U& size)
{
    if (GetDirect2DSpy().hShow != nullptr)
    {
        SetWindowPos(GetDirect2DSpy().hShow, HWND_TOPMOST, 0, 0, static_cast<int>(size.width),
                     static_cast<int>(size.height), SWP_NOMOVE | SWP_NOACTIVATE);
    }
}

class CSpyRenderTarget final : public CUnusedHwndRenderTarget
{
public:
    explicit CSpyRenderTarget(CComPtr<ID2D1HwndRenderTarget> pReal) : m_pReal(std::move(pReal))
    {
        GetDirect2DSpy().pRealTarget = m_pReal.Get();
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return RefuseDirect2D(); }
    ULONG STDMETHODCALLTYPE AddRef() override { return m_count.Add(); }
    ULONG STDMETHODCALLTYPE Release() override { return m_count.Remove(this); }

    HRESULT STDMETHODCALLTYPE CreateBitmap(D2D1_SIZE_U size, const void* pPixels, UINT32 uPitch,
                                           const D2D1_BITMAP_PROPERTIES* pProperties, ID2D1Bitmap** ppBitmap) override
    {
        const HRESULT hr = GetDirect2DSpy().hrBitmap;
        return FAILED(hr) ? hr : m_pReal->CreateBitmap(size, pPixels, uPitch, pProperties, ppBitmap);
    }

    HRESULT STDMETHODCALLTYPE CreateBitmapBrush(ID2D1Bitmap* pBitmap, const D2D1_BITMAP_BRUSH_PROPERTIES* pProperties,
                                                const D2D1_BRUSH_PROPERTIES* pBrush,
                                                ID2D1BitmapBrush** ppBrush) override
    {
        return m_pReal->CreateBitmapBrush(pBitmap, pProperties, pBrush, ppBrush);
    }

    HRESULT STDMETHODCALLTYPE CreateSolidColorBrush(const D2D1_COLOR_F* pColour,
                                                    const D2D1_BRUSH_PROPERTIES* pProperties,
                                                    ID2D1SolidColorBrush** ppBrush) override;

    void STDMETHODCALLTYPE FillRectangle(const D2D1_RECT_F* pRect, ID2D1Brush* pBrush) override
    {
        ++GetDirect2DSpy().iRectangles;
        const CSpyBrush* const pSpy = AsSpy(pBrush);
        m_pReal->FillRectangle(pRect, pSpy != nullptr ? pSpy->GetReal() : pBrush);
    }

    void STDMETHODCALLTYPE FillEllipse(const D2D1_ELLIPSE* pEllipse, ID2D1Brush* pBrush) override
    {
        const CSpyBrush* const pSpy = AsSpy(pBrush);
        if (pSpy == nullptr)
        {
            RefuseDirect2D();
            return;
        }
        GetDirect2DSpy().ellipses.push_back({*pEllipse, pSpy->GetSpiedColour()});
        if (GetDirect2DSpy().bDrawEllipses)
        {
            m_pReal->FillEllipse(pEllipse, pSpy->GetReal());
        }
    }

    void STDMETHODCALLTYPE BeginDraw() override
    {
        ++GetDirect2DSpy().iBeginDraw;
        if (GetDirect2DSpy().bThrowInFrame)
        {
            throw std::runtime_error("no frame today");
        }
        m_pReal->BeginDraw();
    }

    HRESULT STDMETHODCALLTYPE EndDraw(D2D1_TAG* pTag1, D2D1_TAG* pTag2) override
    {
        ++GetDirect2DSpy().iEndDraw;
        const HRESULT hr = m_pReal->EndDraw(pTag1, pTag2);
        return FAILED(GetDirect2DSpy().hrEndDraw) ? GetDirect2DSpy().hrEndDraw : hr;
    }

    HRESULT STDMETHODCALLTYPE Resize(const D2D1_SIZE_U* pSize) override
    {
        GetDirect2DSpy().resizes.push_back({static_cast<LONG>(pSize->width), static_cast<LONG>(pSize->height)});
        ResizeShownWindow(*pSize);
        return m_pReal->Resize(pSize);
    }

    D2D1_SIZE_U* STDMETHODCALLTYPE GetPixelSize(D2D1_SIZE_U* pSize) const override
    {
        return m_pReal->GetPixelSize(pSize);
    }

private:
    CSpyCount m_count{"target"};
    CComPtr<ID2D1HwndRenderTarget> m_pReal;
};

HRESULT CSpyRenderTarget::CreateSolidColorBrush(const D2D1_COLOR_F* pColour, const D2D1_BRUSH_PROPERTIES* pProperties,
                                                ID2D1SolidColorBrush** ppBrush)
{
    CDirect2DSpy& spy = GetDirect2DSpy();
    ++spy.iSolidBrushes;
    HRESULT hr = S_OK;
    if (!spy.brushes.empty())
    {
        hr = spy.brushes.front();
        spy.brushes.pop_front();
    }
    if (FAILED(hr) || spy.bNullBrush)
    {
        return hr;
    }
    CComPtr<ID2D1SolidColorBrush> pReal;
    hr = m_pReal->CreateSolidColorBrush(pColour, pProperties, pReal.Receive());
    if (SUCCEEDED(hr))
    {
        *ppBrush = new CSpyBrush(std::move(pReal), *pColour);
    }
    return hr;
}

class CSpyFactory final : public CUnusedFactory
{
public:
    explicit CSpyFactory(CComPtr<ID2D1Factory> pReal) : m_pReal(std::move(pReal)) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return RefuseDirect2D(); }
    ULONG STDMETHODCALLTYPE AddRef() override { return m_count.Add(); }
    ULONG STDMETHODCALLTYPE Release() override { return m_count.Remove(this); }

    HRESULT STDMETHODCALLTYPE CreateHwndRenderTarget(const D2D1_RENDER_TARGET_PROPERTIES* pProperties,
                                                     const D2D1_HWND_RENDER_TARGET_PROPERTIES* pWindow,
                                                     ID2D1HwndRenderTarget** ppTarget) override
    {
        CDirect2DSpy& spy = GetDirect2DSpy();
        ++spy.iRenderTargets;
        spy.sizeCreated = {static_cast<LONG>(pWindow->pixelSize.width), static_cast<LONG>(pWindow->pixelSize.height)};
        if (FAILED(spy.hrRenderTarget) || spy.bNullRenderTarget)
        {
            return spy.hrRenderTarget;
        }
        CComPtr<ID2D1HwndRenderTarget> pReal;
        D2D1_HWND_RENDER_TARGET_PROPERTIES window = *pWindow;
        ResizeShownWindow(window.pixelSize);
        window.hwnd = spy.hShow != nullptr ? spy.hShow : window.hwnd;
        const HRESULT hr = m_pReal->CreateHwndRenderTarget(pProperties, &window, pReal.Receive());
        if (SUCCEEDED(hr))
        {
            *ppTarget = new CSpyRenderTarget(std::move(pReal));
        }
        return hr;
    }

private:
    CSpyCount m_count{"factory"};
    CComPtr<ID2D1Factory> m_pReal;
};

} // namespace

HRESULT CreateSpyFactory(ID2D1Factory** ppFactory)
{
    CDirect2DSpy& spy = GetDirect2DSpy();
    ++spy.iFactories;
    if (FAILED(spy.hrFactory) || spy.bNullFactory)
    {
        return spy.hrFactory;
    }
    CComPtr<ID2D1Factory> pReal;
    const HRESULT hr = CreateDirect2DFactory(pReal.Receive());
    if (SUCCEEDED(hr))
    {
        *ppFactory = new CSpyFactory(std::move(pReal));
    }
    return hr;
}
