#pragma once

#include <windows.h>

#include <d2d1.h>

#include <deque>
#include <string>
#include <vector>

struct CSpyEllipse
{
    D2D1_ELLIPSE ellipse{};
    D2D1_COLOR_F colour{};
};

// A Direct2D that forwards every call to the real one, records the calls, and fails on request.
struct CDirect2DSpy
{
    // The failures to produce.
    HRESULT hrFactory = S_OK;
    bool bNullFactory = false;
    HRESULT hrRenderTarget = S_OK;
    bool bNullRenderTarget = false;
    std::deque<HRESULT> brushes; // results of the next solid brushes, one each; S_OK when used up
    bool bNullBrush = false;
    HRESULT hrBitmap = S_OK; // a tiled backdrop needs one
    HRESULT hrEndDraw = S_OK;
    bool bThrowInFrame = false;
    bool bDrawEllipses = true; // false: ellipses are only recorded

    // The recorded calls.
    int iFactories = 0;
    int iRenderTargets = 0;
    int iSolidBrushes = 0;
    int iBeginDraw = 0;
    int iEndDraw = 0;
    int iRectangles = 0;
    int iUnexpected = 0; // calls that no painter should make
    SIZE sizeCreated{};
    std::vector<SIZE> resizes;
    std::vector<CSpyEllipse> ellipses;
    std::vector<std::string> closed;              // the destroyed objects in order: "brush", "target", "factory"
    ID2D1HwndRenderTarget* pRealTarget = nullptr; // of the latest target

    // The window that the real targets draw to, of the same size as the view; null: the view itself. Under Wine,
    // Direct2D's drawing in a child window stays invisible, so tests need a top-level window.
    HWND hShow = nullptr;
};

CDirect2DSpy& GetDirect2DSpy();
