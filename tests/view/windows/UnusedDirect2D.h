#pragma once

#include "tests/view/windows/Direct2DSpy.h"

#include <windows.h>

#include <d2d1.h>

// Direct2D objects that refuse every operation and count it as unexpected. The spies derive from them and override the
// operations that the painters may use.

inline HRESULT RefuseDirect2D()
{
    ++GetDirect2DSpy().iUnexpected;
    return E_NOTIMPL;
}

// COM interfaces have no virtual destructor: their objects delete themselves at the last Release.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

class CUnusedFactory : public ID2D1Factory
{
public:
    virtual ~CUnusedFactory() = default;
    HRESULT STDMETHODCALLTYPE ReloadSystemMetrics() override { return RefuseDirect2D(); }
    void STDMETHODCALLTYPE GetDesktopDpi(FLOAT*, FLOAT*) override { RefuseDirect2D(); }
    HRESULT STDMETHODCALLTYPE CreateRectangleGeometry(const D2D1_RECT_F*, ID2D1RectangleGeometry**) override
    {
        return RefuseDirect2D();
    }
    HRESULT STDMETHODCALLTYPE CreateRoundedRectangleGeometry(const D2D1_ROUNDED_RECT*,
                                                             ID2D1RoundedRectangleGeometry**) override
    {
        return RefuseDirect2D();
    }
    HRESULT STDMETHODCALLTYPE CreateEllipseGeometry(const D2D1_ELLIPSE*, ID2D1EllipseGeometry**) override
    {
        return RefuseDirect2D();
    }
    HRESULT STDMETHODCALLTYPE CreateGeometryGroup(D2D1_FILL_MODE, ID2D1Geometry**, UINT, ID2D1GeometryGroup**) override
    {
        return RefuseDirect2D();
    }
    HRESULT STDMETHODCALLTYPE CreateTransformedGeometry(ID2D1Geometry*, const D2D1_MATRIX_3X2_F*,
                                                        ID2D1TransformedGeometry**) override
    {
        return RefuseDirect2D();
    }
    HRESULT STDMETHODCALLTYPE CreatePathGeometry(ID2D1PathGeometry**) override { return RefuseDirect2D(); }
    HRESULT STDMETHODCALLTYPE CreateStrokeStyle(const D2D1_STROKE_STYLE_PROPERTIES*, const FLOAT*, UINT,
                                                ID2D1StrokeStyle**) override
    {
        return RefuseDirect2D();
    }
    HRESULT STDMETHODCALLTYPE CreateDrawingStateBlock(const D2D1_DRAWING_STATE_DESCRIPTION*, IDWriteRenderingParams*,
                                                      ID2D1DrawingStateBlock**) override
    {
        return RefuseDirect2D();
    }
    HRESULT STDMETHODCALLTYPE CreateWicBitmapRenderTarget(IWICBitmap*, const D2D1_RENDER_TARGET_PROPERTIES*,
                                                          ID2D1RenderTarget**) override
    {
        return RefuseDirect2D();
    }
    HRESULT STDMETHODCALLTYPE CreateHwndRenderTarget(const D2D1_RENDER_TARGET_PROPERTIES*,
                                                     const D2D1_HWND_RENDER_TARGET_PROPERTIES*,
                                                     ID2D1HwndRenderTarget**) override
    {
        return RefuseDirect2D();
    }
    HRESULT STDMETHODCALLTYPE CreateDxgiSurfaceRenderTarget(IDXGISurface*, const D2D1_RENDER_TARGET_PROPERTIES*,
                                                            ID2D1RenderTarget**) override
    {
        return RefuseDirect2D();
    }
    HRESULT STDMETHODCALLTYPE CreateDCRenderTarget(const D2D1_RENDER_TARGET_PROPERTIES*, ID2D1DCRenderTarget**) override
    {
        return RefuseDirect2D();
    }
};

class CUnusedHwndRenderTarget : public ID2D1HwndRenderTarget
{
public:
    virtual ~CUnusedHwndRenderTarget() = default;
    void STDMETHODCALLTYPE GetFactory(ID2D1Factory**) const override { RefuseDirect2D(); }
    HRESULT STDMETHODCALLTYPE CreateBitmap(D2D1_SIZE_U, const void*, UINT32, const D2D1_BITMAP_PROPERTIES*,
                                           ID2D1Bitmap**) override
    {
        return RefuseDirect2D();
    }
    HRESULT STDMETHODCALLTYPE CreateBitmapFromWicBitmap(IWICBitmapSource*, const D2D1_BITMAP_PROPERTIES*,
                                                        ID2D1Bitmap**) override
    {
        return RefuseDirect2D();
    }
    HRESULT STDMETHODCALLTYPE CreateSharedBitmap(REFIID, void*, const D2D1_BITMAP_PROPERTIES*, ID2D1Bitmap**) override
    {
        return RefuseDirect2D();
    }
    HRESULT STDMETHODCALLTYPE CreateBitmapBrush(ID2D1Bitmap*, const D2D1_BITMAP_BRUSH_PROPERTIES*,
                                                const D2D1_BRUSH_PROPERTIES*, ID2D1BitmapBrush**) override
    {
        return RefuseDirect2D();
    }
    HRESULT STDMETHODCALLTYPE CreateSolidColorBrush(const D2D1_COLOR_F*, const D2D1_BRUSH_PROPERTIES*,
                                                    ID2D1SolidColorBrush**) override
    {
        return RefuseDirect2D();
    }
    HRESULT STDMETHODCALLTYPE CreateGradientStopCollection(const D2D1_GRADIENT_STOP*, UINT, D2D1_GAMMA,
                                                           D2D1_EXTEND_MODE, ID2D1GradientStopCollection**) override
    {
        return RefuseDirect2D();
    }
    HRESULT STDMETHODCALLTYPE CreateLinearGradientBrush(const D2D1_LINEAR_GRADIENT_BRUSH_PROPERTIES*,
                                                        const D2D1_BRUSH_PROPERTIES*, ID2D1GradientStopCollection*,
                                                        ID2D1LinearGradientBrush**) override
    {
        return RefuseDirect2D();
    }
    HRESULT STDMETHODCALLTYPE CreateRadialGradientBrush(const D2D1_RADIAL_GRADIENT_BRUSH_PROPERTIES*,
                                                        const D2D1_BRUSH_PROPERTIES*, ID2D1GradientStopCollection*,
                                                        ID2D1RadialGradientBrush**) override
    {
        return RefuseDirect2D();
    }
    HRESULT STDMETHODCALLTYPE CreateCompatibleRenderTarget(const D2D1_SIZE_F*, const D2D1_SIZE_U*,
                                                           const D2D1_PIXEL_FORMAT*,
                                                           D2D1_COMPATIBLE_RENDER_TARGET_OPTIONS,
                                                           ID2D1BitmapRenderTarget**) override
    {
        return RefuseDirect2D();
    }
    HRESULT STDMETHODCALLTYPE CreateLayer(const D2D1_SIZE_F*, ID2D1Layer**) override { return RefuseDirect2D(); }
    HRESULT STDMETHODCALLTYPE CreateMesh(ID2D1Mesh**) override { return RefuseDirect2D(); }
    void STDMETHODCALLTYPE DrawLine(D2D1_POINT_2F, D2D1_POINT_2F, ID2D1Brush*, FLOAT, ID2D1StrokeStyle*) override
    {
        RefuseDirect2D();
    }
    void STDMETHODCALLTYPE DrawRectangle(const D2D1_RECT_F*, ID2D1Brush*, FLOAT, ID2D1StrokeStyle*) override
    {
        RefuseDirect2D();
    }
    void STDMETHODCALLTYPE FillRectangle(const D2D1_RECT_F*, ID2D1Brush*) override { RefuseDirect2D(); }
    void STDMETHODCALLTYPE DrawRoundedRectangle(const D2D1_ROUNDED_RECT*, ID2D1Brush*, FLOAT,
                                                ID2D1StrokeStyle*) override
    {
        RefuseDirect2D();
    }
    void STDMETHODCALLTYPE FillRoundedRectangle(const D2D1_ROUNDED_RECT*, ID2D1Brush*) override { RefuseDirect2D(); }
    void STDMETHODCALLTYPE DrawEllipse(const D2D1_ELLIPSE*, ID2D1Brush*, FLOAT, ID2D1StrokeStyle*) override
    {
        RefuseDirect2D();
    }
    void STDMETHODCALLTYPE FillEllipse(const D2D1_ELLIPSE*, ID2D1Brush*) override { RefuseDirect2D(); }
    void STDMETHODCALLTYPE DrawGeometry(ID2D1Geometry*, ID2D1Brush*, FLOAT, ID2D1StrokeStyle*) override
    {
        RefuseDirect2D();
    }
    void STDMETHODCALLTYPE FillGeometry(ID2D1Geometry*, ID2D1Brush*, ID2D1Brush*) override { RefuseDirect2D(); }
    void STDMETHODCALLTYPE FillMesh(ID2D1Mesh*, ID2D1Brush*) override { RefuseDirect2D(); }
    void STDMETHODCALLTYPE FillOpacityMask(ID2D1Bitmap*, ID2D1Brush*, D2D1_OPACITY_MASK_CONTENT, const D2D1_RECT_F*,
                                           const D2D1_RECT_F*) override
    {
        RefuseDirect2D();
    }
    void STDMETHODCALLTYPE DrawBitmap(ID2D1Bitmap*, const D2D1_RECT_F*, FLOAT, D2D1_BITMAP_INTERPOLATION_MODE,
                                      const D2D1_RECT_F*) override
    {
        RefuseDirect2D();
    }
    void STDMETHODCALLTYPE DrawText(const WCHAR*, UINT, IDWriteTextFormat*, const D2D1_RECT_F*, ID2D1Brush*,
                                    D2D1_DRAW_TEXT_OPTIONS, DWRITE_MEASURING_MODE) override
    {
        RefuseDirect2D();
    }
    void STDMETHODCALLTYPE DrawTextLayout(D2D1_POINT_2F, IDWriteTextLayout*, ID2D1Brush*,
                                          D2D1_DRAW_TEXT_OPTIONS) override
    {
        RefuseDirect2D();
    }
    void STDMETHODCALLTYPE DrawGlyphRun(D2D1_POINT_2F, const DWRITE_GLYPH_RUN*, ID2D1Brush*,
                                        DWRITE_MEASURING_MODE) override
    {
        RefuseDirect2D();
    }
    void STDMETHODCALLTYPE SetTransform(const D2D1_MATRIX_3X2_F*) override { RefuseDirect2D(); }
    void STDMETHODCALLTYPE GetTransform(D2D1_MATRIX_3X2_F*) const override { RefuseDirect2D(); }
    void STDMETHODCALLTYPE SetAntialiasMode(D2D1_ANTIALIAS_MODE) override { RefuseDirect2D(); }
    D2D1_ANTIALIAS_MODE STDMETHODCALLTYPE GetAntialiasMode() const override
    {
        RefuseDirect2D();
        return {};
    }
    void STDMETHODCALLTYPE SetTextAntialiasMode(D2D1_TEXT_ANTIALIAS_MODE) override { RefuseDirect2D(); }
    D2D1_TEXT_ANTIALIAS_MODE STDMETHODCALLTYPE GetTextAntialiasMode() const override
    {
        RefuseDirect2D();
        return {};
    }
    void STDMETHODCALLTYPE SetTextRenderingParams(IDWriteRenderingParams*) override { RefuseDirect2D(); }
    void STDMETHODCALLTYPE GetTextRenderingParams(IDWriteRenderingParams**) const override { RefuseDirect2D(); }
    void STDMETHODCALLTYPE SetTags(D2D1_TAG, D2D1_TAG) override { RefuseDirect2D(); }
    void STDMETHODCALLTYPE GetTags(D2D1_TAG*, D2D1_TAG*) const override { RefuseDirect2D(); }
    void STDMETHODCALLTYPE PushLayer(const D2D1_LAYER_PARAMETERS*, ID2D1Layer*) override { RefuseDirect2D(); }
    void STDMETHODCALLTYPE PopLayer() override { RefuseDirect2D(); }
    HRESULT STDMETHODCALLTYPE Flush(D2D1_TAG*, D2D1_TAG*) override { return RefuseDirect2D(); }
    void STDMETHODCALLTYPE SaveDrawingState(ID2D1DrawingStateBlock*) const override { RefuseDirect2D(); }
    void STDMETHODCALLTYPE RestoreDrawingState(ID2D1DrawingStateBlock*) override { RefuseDirect2D(); }
    void STDMETHODCALLTYPE PushAxisAlignedClip(const D2D1_RECT_F*, D2D1_ANTIALIAS_MODE) override { RefuseDirect2D(); }
    void STDMETHODCALLTYPE PopAxisAlignedClip() override { RefuseDirect2D(); }
    void STDMETHODCALLTYPE Clear(const D2D1_COLOR_F*) override { RefuseDirect2D(); }
    void STDMETHODCALLTYPE BeginDraw() override { RefuseDirect2D(); }
    HRESULT STDMETHODCALLTYPE EndDraw(D2D1_TAG*, D2D1_TAG*) override { return RefuseDirect2D(); }
    D2D1_PIXEL_FORMAT* STDMETHODCALLTYPE GetPixelFormat(D2D1_PIXEL_FORMAT* p) const override
    {
        RefuseDirect2D();
        return p;
    }
    void STDMETHODCALLTYPE SetDpi(FLOAT, FLOAT) override { RefuseDirect2D(); }
    void STDMETHODCALLTYPE GetDpi(FLOAT*, FLOAT*) const override { RefuseDirect2D(); }
    D2D1_SIZE_F* STDMETHODCALLTYPE GetSize(D2D1_SIZE_F* p) const override
    {
        RefuseDirect2D();
        return p;
    }
    D2D1_SIZE_U* STDMETHODCALLTYPE GetPixelSize(D2D1_SIZE_U* p) const override
    {
        RefuseDirect2D();
        return p;
    }
    UINT32 STDMETHODCALLTYPE GetMaximumBitmapSize() const override
    {
        RefuseDirect2D();
        return 0;
    }
    BOOL STDMETHODCALLTYPE IsSupported(const D2D1_RENDER_TARGET_PROPERTIES*) const override
    {
        RefuseDirect2D();
        return 0;
    }
    D2D1_WINDOW_STATE STDMETHODCALLTYPE CheckWindowState() override
    {
        RefuseDirect2D();
        return {};
    }
    HRESULT STDMETHODCALLTYPE Resize(const D2D1_SIZE_U*) override { return RefuseDirect2D(); }
    HWND STDMETHODCALLTYPE GetHwnd() const override
    {
        RefuseDirect2D();
        return {};
    }
};

#pragma GCC diagnostic pop
