#include "view/CPainterDirect2D.h"

#include "classes/core/CColour.h"
#include "classes/core/OutputDebugMessage.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace
{

// HRESULTs are printed in hexadecimal: the sign bit is part of the code.
unsigned GetCode(HRESULT hr)
{
    return static_cast<unsigned>(hr);
}

D2D1_COLOR_F MakeColour_Direct2D(ColourRef cr)
{
    constexpr double c_dFullByte = 255.0;
    const auto share = [](std::uint8_t uByte) { return static_cast<float>(uByte / c_dFullByte); };
    return D2D1_COLOR_F{share(GetRed(cr)), share(GetGreen(cr)), share(GetBlue(cr)), 1.0F};
}

// At least one pixel: some systems make a target of 0 pixels that can never be drawn to.
D2D1_SIZE_U GetTargetSize(LONG iWidth, LONG iHeight)
{
    return D2D1_SIZE_U{static_cast<UINT32>(std::max(iWidth, LONG{1})), static_cast<UINT32>(std::max(iHeight, LONG{1}))};
}

} // namespace

CPainterDirect2D::CPainterDirect2D(CreateDirect2DFactoryFunction pCreateFactory) : m_pCreateFactory(pCreateFactory) {}

CPainterDirect2D::~CPainterDirect2D()
{
    Release();
}

void CPainterDirect2D::Release()
{
    for (CComPtr<ID2D1SolidColorBrush>& pBrush : m_pBrushes)
    {
        pBrush.Reset();
    }
    m_pRenderTarget.Reset();
    m_pFactory.Reset();
}

bool CPainterDirect2D::Prepare(HWND hWnd, const CColourSettings& settings, std::wstring* pDebugLog)
{
    return EnsureFactory(pDebugLog) && EnsureRenderTarget(hWnd, pDebugLog) && CreateBrushes(settings, pDebugLog);
}

bool CPainterDirect2D::EnsureFactory(std::wstring* pDebugLog)
{
    if (m_pFactory)
    {
        return true;
    }
    const HRESULT hr = m_pCreateFactory(m_pFactory.Receive());
    if (SUCCEEDED(hr) && m_pFactory)
    {
        return true;
    }
    m_pFactory.Reset();
    OutputDebugMessage(pDebugLog, L"Error : D2D1CreateFactory() returned 0x%x\n", GetCode(hr));
    return false;
}

bool CPainterDirect2D::EnsureRenderTarget(HWND hWnd, std::wstring* pDebugLog)
{
    if (m_pRenderTarget)
    {
        return true;
    }
    RECT rcClient{};
    GetClientRect(hWnd, &rcClient);
    const D2D1_RENDER_TARGET_PROPERTIES properties{}; // all defaults
    const D2D1_HWND_RENDER_TARGET_PROPERTIES window{hWnd, GetTargetSize(rcClient.right, rcClient.bottom),
                                                    D2D1_PRESENT_OPTIONS_NONE};
    const HRESULT hr = m_pFactory->CreateHwndRenderTarget(&properties, &window, m_pRenderTarget.Receive());
    if (SUCCEEDED(hr) && m_pRenderTarget)
    {
        return true;
    }
    m_pRenderTarget.Reset();
    OutputDebugMessage(pDebugLog, L"Error : CreateHwndRenderTarget() returned 0x%x\n", GetCode(hr));
    return false;
}

bool CPainterDirect2D::CreateBrushes(const CColourSettings& settings, std::wstring* pDebugLog)
{
    bool bSuccess = true;
    for (std::size_t u = 0; u < c_uColourClassCount; ++u)
    {
        const D2D1_COLOR_F colour = MakeColour_Direct2D(settings[u].cr);
        const HRESULT hr = m_pRenderTarget->CreateSolidColorBrush(&colour, nullptr, m_pBrushes[u].Receive());
        if (FAILED(hr) || !m_pBrushes[u])
        {
            m_pBrushes[u].Reset();
            OutputDebugMessage(pDebugLog,
                               L"Error : CreateSolidColorBrush(m_pAtomColourSettings[%u].cr) returned 0x%x\n",
                               static_cast<unsigned>(u), GetCode(hr));
            bSuccess = false;
        }
    }
    return bSuccess;
}

void CPainterDirect2D::Resize(const SIZE& size)
{
    if (!m_pRenderTarget)
    {
        return;
    }
    const D2D1_SIZE_U sizePixels = GetTargetSize(size.cx, size.cy);
    D2D1_SIZE_U sizeNow{};
    m_pRenderTarget->GetPixelSize(&sizeNow);
    if (sizeNow.width != sizePixels.width || sizeNow.height != sizePixels.height)
    {
        m_pRenderTarget->Resize(&sizePixels);
    }
}

void CPainterDirect2D::PaintFrame(const CFrame& frame)
{
    m_pRenderTarget->BeginDraw();
    if (frame.pBackdrop == nullptr || !frame.pBackdrop->DrawTiled_Direct2D(m_pRenderTarget.Get()))
    {
        DropRenderTarget(frame);
        return;
    }
    if (frame.pWorld->DrawTiled_Direct2D(m_pRenderTarget.Get()))
    {
        DrawAtoms(frame.scene);
    }
    // The result is used only to learn that the device is gone: nothing more would appear on such a target.
    if (m_pRenderTarget->EndDraw() == static_cast<HRESULT>(D2DERR_RECREATE_TARGET))
    {
        DropRenderTarget(frame);
    }
}

// The brushes of the pictures keep the target alive: it is only freed when the pictures release theirs too.
void CPainterDirect2D::DropRenderTarget(const CFrame& frame)
{
    if (frame.pBackdrop != nullptr)
    {
        frame.pBackdrop->ReleaseDirect2D();
    }
    frame.pWorld->ReleaseDirect2D();
    m_pRenderTarget.Reset();
}

void CPainterDirect2D::DrawAtoms(const CAtomScene& scene)
{
    const float fLeft = static_cast<float>(scene.ptWorld.x);
    const float fTop = static_cast<float>(scene.ptWorld.y);
    ID2D1HwndRenderTarget* const pTarget = m_pRenderTarget.Get();
    const std::array<ID2D1SolidColorBrush*, c_uColourClassCount> brushes{m_pBrushes[0].Get(), m_pBrushes[1].Get(),
                                                                         m_pBrushes[2].Get()};
    const auto draw = [&](const CAtom& atom, int iClass) {
        // A class whose brush could not be made stays invisible.
        if (ID2D1SolidColorBrush* const pBrush = brushes[static_cast<std::size_t>(iClass)])
        {
            const float fRadius = static_cast<float>(atom.radius);
            const D2D1_ELLIPSE ellipse{{fLeft + atom.x, fTop + atom.y}, fRadius, fRadius};
            pTarget->FillEllipse(&ellipse, pBrush);
        }
    };
    switch (scene.eMode)
    {
    case EnumAtomColourMode::Speed:
        DrawAtoms_Speed(scene, draw);
        break;
    case EnumAtomColourMode::Fixed:
        DrawAtoms_Fixed(scene, draw);
        break;
    }
}
