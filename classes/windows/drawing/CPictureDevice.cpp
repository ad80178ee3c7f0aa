#include "classes/windows/drawing/CPictureDevice.h"

#include "classes/core/CColour.h"

namespace
{
constexpr float c_fMaxChannel = 255.0F;
constexpr float c_fDpi = 96.0F; // one unit of the target is one pixel: the program lays out in pixels
constexpr UINT32 c_uBytesPerPixel = 4;

D2D1_COLOR_F ToColour(COLORREF cr)
{
    return {static_cast<float>(GetRed(cr)) / c_fMaxChannel, static_cast<float>(GetGreen(cr)) / c_fMaxChannel,
            static_cast<float>(GetBlue(cr)) / c_fMaxChannel, 1.0F};
}

D2D1_RECT_F ToRectF(const RECT& rc)
{
    return {static_cast<float>(rc.left), static_cast<float>(rc.top), static_cast<float>(rc.right),
            static_cast<float>(rc.bottom)};
}
} // namespace

void CPictureDevice::UseTarget(ID2D1HwndRenderTarget* pTarget)
{
    if (m_pTarget.Get() == pTarget)
    {
        return;
    }
    m_pSolidBrush.Reset();
    m_pTileBrush.Reset();
    m_pTarget = CComPtr<ID2D1HwndRenderTarget>::Share(pTarget);
}

HRESULT CPictureDevice::FillSolid(ID2D1HwndRenderTarget* pTarget, const RECT& rc, COLORREF cr)
{
    UseTarget(pTarget);
    const D2D1_COLOR_F colour = ToColour(cr);
    if (!m_pSolidBrush)
    {
        const HRESULT hr = pTarget->CreateSolidColorBrush(&colour, nullptr, m_pSolidBrush.Receive());
        if (FAILED(hr) || !m_pSolidBrush)
        {
            return FAILED(hr) ? hr : E_FAIL;
        }
    }
    m_pSolidBrush->SetColor(&colour);
    const D2D1_RECT_F rcTarget = ToRectF(rc);
    pTarget->FillRectangle(&rcTarget, m_pSolidBrush.Get());
    return S_OK;
}

HRESULT CPictureDevice::FillTiled(ID2D1HwndRenderTarget* pTarget, const RECT& rc, const std::uint32_t* pPixels,
                                  SIZE size)
{
    UseTarget(pTarget);
    if (!m_pTileBrush)
    {
        D2D1_BITMAP_PROPERTIES properties{};
        properties.pixelFormat = {DXGI_FORMAT_B8G8R8A8_UNORM, D2D1_ALPHA_MODE_PREMULTIPLIED};
        properties.dpiX = c_fDpi;
        properties.dpiY = c_fDpi;
        CComPtr<ID2D1Bitmap> pBitmap;
        HRESULT hr =
            pTarget->CreateBitmap({static_cast<UINT32>(size.cx), static_cast<UINT32>(size.cy)}, pPixels,
                                  static_cast<UINT32>(size.cx) * c_uBytesPerPixel, &properties, pBitmap.Receive());
        if (FAILED(hr) || !pBitmap)
        {
            return FAILED(hr) ? hr : E_FAIL;
        }
        // Nearest neighbour: tiles lie on whole pixels, so nothing has to be blended.
        const D2D1_BITMAP_BRUSH_PROPERTIES brush{D2D1_EXTEND_MODE_WRAP, D2D1_EXTEND_MODE_WRAP,
                                                 D2D1_BITMAP_INTERPOLATION_MODE_NEAREST_NEIGHBOR};
        hr = pTarget->CreateBitmapBrush(pBitmap.Get(), &brush, nullptr, m_pTileBrush.Receive());
        if (FAILED(hr) || !m_pTileBrush)
        {
            return FAILED(hr) ? hr : E_FAIL;
        }
    }
    const D2D1_MATRIX_3X2_F toOrigin{
        {{1.0F, 0.0F, 0.0F, 1.0F, static_cast<float>(rc.left), static_cast<float>(rc.top)}}};
    m_pTileBrush->SetTransform(&toOrigin);
    const D2D1_RECT_F rcTarget = ToRectF(rc);
    pTarget->FillRectangle(&rcTarget, m_pTileBrush.Get());
    return S_OK;
}
