#pragma once

#include "classes/windows/system/Handles.h"
#include "view/ColourRules.h"
#include "view/CreateDirect2DFactory.h"
#include "view/IPainter.h"

#include <windows.h>

#include <d2d1.h>

#include <array>
#include <string>

// Draws straight to a render target on the window. The first successful Prepare makes factory and target, which are
// kept until a frame drops the target; each Prepare makes new brushes.
class CPainterDirect2D final : public IPainter
{
public:
    explicit CPainterDirect2D(CreateDirect2DFactoryFunction pCreateFactory);
    CPainterDirect2D(const CPainterDirect2D&) = delete;
    CPainterDirect2D& operator=(const CPainterDirect2D&) = delete;
    ~CPainterDirect2D() override;

    // Makes the missing resources for drawing to hWnd, and one brush per class. Each failure writes one line with the
    // result code to pDebugLog (null: none).
    // Returns true if all three brushes were made.
    bool Prepare(HWND hWnd, const CColourSettings& settings, std::wstring* pDebugLog);

    bool HasRenderTarget() const { return static_cast<bool>(m_pRenderTarget); }

    // Gives the target, if there is one, this size in pixels. Does nothing if it has that size: the system would
    // replace its memory, and Wine 10 loses some of the old one.
    void Resize(const SIZE& size);

    // Drops the target if the backdrop cannot be drawn, and if the system has taken the device away (a driver update, a
    // remote session). Only the next Prepare makes a new one.
    void PaintFrame(const CFrame& frame) override;

    // Releases the brushes, then the target, then the factory.
    void Release();

private:
    bool EnsureFactory(std::wstring* pDebugLog);
    bool EnsureRenderTarget(HWND hWnd, std::wstring* pDebugLog);
    bool CreateBrushes(const CColourSettings& settings, std::wstring* pDebugLog);
    void DrawAtoms(const CAtomScene& scene);
    void DropRenderTarget(const CFrame& frame);

    CreateDirect2DFactoryFunction m_pCreateFactory;
    CComPtr<ID2D1Factory> m_pFactory;
    CComPtr<ID2D1HwndRenderTarget> m_pRenderTarget;
    std::array<CComPtr<ID2D1SolidColorBrush>, c_uColourClassCount> m_pBrushes;
};
