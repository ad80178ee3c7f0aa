#include "tests/view/windows/FailingDirect2D.h"

#include "tests/view/windows/UnusedDirect2D.h"

namespace
{
enum class EnumAnswer : unsigned char
{
    Good,
    Error,
    Nothing, // success, but no object
};

EnumAnswer AnswerCall(const char* sName)
{
    CFailingDirect2D& fake = GetFailingDirect2D();
    const int iCall = static_cast<int>(fake.calls.size());
    fake.calls.emplace_back(sName);
    if (fake.failAt == CFailingDirect2D::c_iNever || iCall < fake.failAt)
    {
        return EnumAnswer::Good;
    }
    if (fake.failure == CFailingDirect2D::EnumFailure::FromThenOn)
    {
        return EnumAnswer::Error;
    }
    if (iCall != fake.failAt)
    {
        return EnumAnswer::Good;
    }
    return fake.failure == CFailingDirect2D::EnumFailure::Once ? EnumAnswer::Error : EnumAnswer::Nothing;
}

HRESULT DoCall(const char* sName)
{
    return AnswerCall(sName) == EnumAnswer::Good ? S_OK : GetFailingDirect2D().error;
}

template<class T, class I, class... A>
HRESULT MakeObject(const char* sName, I** ppObject, const A&... arguments)
{
    const EnumAnswer eAnswer = AnswerCall(sName);
    if (eAnswer == EnumAnswer::Good)
    {
        *ppObject = new T(arguments...);
    }
    return eAnswer == EnumAnswer::Error ? GetFailingDirect2D().error : S_OK;
}

// COM interfaces have no virtual destructor: their objects delete themselves at the last Release.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

// Reference counting over an interface; it starts with one reference.
template<class I>
class CCounted : public I
{
public:
    CCounted() { ++GetFailingDirect2D().alive; }
    virtual ~CCounted() { --GetFailingDirect2D().alive; } // NOLINT(modernize-use-override): not all I have one
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_uCount; }
    ULONG STDMETHODCALLTYPE Release() override
    {
        const ULONG uLeft = --m_uCount;
        if (uLeft == 0)
        {
            delete this;
        }
        return uLeft;
    }

private:
    ULONG m_uCount = 1;
};

template<class I>
class CFakeBrush : public CCounted<I>
{
public:
    void STDMETHODCALLTYPE GetFactory(ID2D1Factory**) const override {}
    void STDMETHODCALLTYPE SetOpacity(FLOAT) override {}
    void STDMETHODCALLTYPE SetTransform(const D2D1_MATRIX_3X2_F*) override {}
    FLOAT STDMETHODCALLTYPE GetOpacity() const override { return 1.0F; }
    void STDMETHODCALLTYPE GetTransform(D2D1_MATRIX_3X2_F*) const override {}
};

class CFakeSolidBrush final : public CFakeBrush<ID2D1SolidColorBrush>
{
public:
    void STDMETHODCALLTYPE SetColor(const D2D1_COLOR_F*) override {}
    D2D1_COLOR_F* STDMETHODCALLTYPE GetColor(D2D1_COLOR_F* pColour) const override { return pColour; }
};

class CFakeBitmapBrush final : public CFakeBrush<ID2D1BitmapBrush>
{
public:
    void STDMETHODCALLTYPE SetExtendModeX(D2D1_EXTEND_MODE) override {}
    void STDMETHODCALLTYPE SetExtendModeY(D2D1_EXTEND_MODE) override {}
    void STDMETHODCALLTYPE SetInterpolationMode(D2D1_BITMAP_INTERPOLATION_MODE) override {}
    void STDMETHODCALLTYPE SetBitmap(ID2D1Bitmap*) override {}
    D2D1_EXTEND_MODE STDMETHODCALLTYPE GetExtendModeX() const override { return D2D1_EXTEND_MODE_WRAP; }
    D2D1_EXTEND_MODE STDMETHODCALLTYPE GetExtendModeY() const override { return D2D1_EXTEND_MODE_WRAP; }
    D2D1_BITMAP_INTERPOLATION_MODE STDMETHODCALLTYPE GetInterpolationMode() const override
    {
        return D2D1_BITMAP_INTERPOLATION_MODE_NEAREST_NEIGHBOR;
    }
    void STDMETHODCALLTYPE GetBitmap(ID2D1Bitmap**) const override {}
};

class CFakeBitmap final : public CCounted<ID2D1Bitmap>
{
public:
    void STDMETHODCALLTYPE GetFactory(ID2D1Factory**) const override {}
    D2D1_SIZE_F* STDMETHODCALLTYPE GetSize(D2D1_SIZE_F* p) const override { return p; }
    D2D1_SIZE_U* STDMETHODCALLTYPE GetPixelSize(D2D1_SIZE_U* p) const override { return p; }
    D2D1_PIXEL_FORMAT* STDMETHODCALLTYPE GetPixelFormat(D2D1_PIXEL_FORMAT* p) const override { return p; }
    void STDMETHODCALLTYPE GetDpi(FLOAT*, FLOAT*) const override {}
    HRESULT STDMETHODCALLTYPE CopyFromBitmap(const D2D1_POINT_2U*, ID2D1Bitmap*, const D2D1_RECT_U*) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE CopyFromRenderTarget(const D2D1_POINT_2U*, ID2D1RenderTarget*,
                                                   const D2D1_RECT_U*) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE CopyFromMemory(const D2D1_RECT_U*, const void*, UINT32) override { return E_NOTIMPL; }
};

class CFakeTarget final : public CCounted<CUnusedHwndRenderTarget>
{
public:
    explicit CFakeTarget(D2D1_SIZE_U size) : m_size(size) { ++GetFailingDirect2D().targets; }

    HRESULT STDMETHODCALLTYPE CreateBitmap(D2D1_SIZE_U, const void*, UINT32, const D2D1_BITMAP_PROPERTIES*,
                                           ID2D1Bitmap** ppBitmap) override
    {
        return MakeObject<CFakeBitmap>("CreateBitmap", ppBitmap);
    }
    HRESULT STDMETHODCALLTYPE CreateBitmapBrush(ID2D1Bitmap*, const D2D1_BITMAP_BRUSH_PROPERTIES*,
                                                const D2D1_BRUSH_PROPERTIES*, ID2D1BitmapBrush** ppBrush) override
    {
        return MakeObject<CFakeBitmapBrush>("CreateBitmapBrush", ppBrush);
    }
    HRESULT STDMETHODCALLTYPE CreateSolidColorBrush(const D2D1_COLOR_F*, const D2D1_BRUSH_PROPERTIES*,
                                                    ID2D1SolidColorBrush** ppBrush) override
    {
        return MakeObject<CFakeSolidBrush>("CreateSolidColorBrush", ppBrush);
    }
    void STDMETHODCALLTYPE FillRectangle(const D2D1_RECT_F*, ID2D1Brush*) override {}
    void STDMETHODCALLTYPE FillEllipse(const D2D1_ELLIPSE*, ID2D1Brush*) override { ++GetFailingDirect2D().ellipses; }
    void STDMETHODCALLTYPE BeginDraw() override
    {
        if (m_bDrawing)
        {
            ++GetFailingDirect2D().misuses;
        }
        m_bDrawing = true;
    }
    HRESULT STDMETHODCALLTYPE EndDraw(D2D1_TAG*, D2D1_TAG*) override
    {
        if (!m_bDrawing)
        {
            ++GetFailingDirect2D().misuses;
        }
        m_bDrawing = false;
        m_bLost = m_bLost || GetFailingDirect2D().loseTarget;
        if (m_bLost)
        {
            GetFailingDirect2D().loseTarget = false;
            return D2DERR_RECREATE_TARGET;
        }
        const HRESULT hr = DoCall("EndDraw");
        if (SUCCEEDED(hr))
        {
            ++GetFailingDirect2D().frames;
        }
        return hr;
    }
    HRESULT STDMETHODCALLTYPE Resize(const D2D1_SIZE_U* pSize) override
    {
        const HRESULT hr = DoCall("Resize");
        m_size = SUCCEEDED(hr) ? *pSize : m_size;
        return hr;
    }
    D2D1_SIZE_U* STDMETHODCALLTYPE GetPixelSize(D2D1_SIZE_U* pSize) const override
    {
        *pSize = m_size;
        return pSize;
    }

private:
    D2D1_SIZE_U m_size;
    bool m_bDrawing = false;
    bool m_bLost = false;
};

class CFakeFactory final : public CCounted<CUnusedFactory>
{
public:
    HRESULT STDMETHODCALLTYPE CreateHwndRenderTarget(const D2D1_RENDER_TARGET_PROPERTIES*,
                                                     const D2D1_HWND_RENDER_TARGET_PROPERTIES* pWindow,
                                                     ID2D1HwndRenderTarget** ppTarget) override
    {
        return MakeObject<CFakeTarget>("CreateHwndRenderTarget", ppTarget, pWindow->pixelSize);
    }
};

#pragma GCC diagnostic pop
} // namespace

CFailingDirect2D& GetFailingDirect2D()
{
    static CFailingDirect2D s_fake;
    return s_fake;
}

HRESULT CreateFailingFactory(ID2D1Factory** ppFactory)
{
    return MakeObject<CFakeFactory>("D2D1CreateFactory", ppFactory);
}
