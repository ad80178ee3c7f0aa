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

// A Direct2D that hands everything on to the real one, writes down what it was asked for, and fails where it is told
// to.
struct CDirect2DSpy
{
    // What fails, and how.
    HRESULT hrFactory = S_OK;
    bool bNullFactory = false;
    HRESULT hrRenderTarget = S_OK;
    bool bNullRenderTarget = false;
    std::deque<HRESULT> brushes; // results of the next solid brushes, one each; S_OK when used up
    bool bNullBrush = false;
    HRESULT hrBitmap = S_OK; // a tiled backdrop needs one
    HRESULT hrEndDraw = S_OK;
    bool bThrowInFrame = false;
    bool bDrawEllipses = true; // false: ellipses are only written down

    // What was asked for.
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
    std::vector<std::string> closed;              // what was released for good, in order: "brush", "target", "factory"
    ID2D1HwndRenderTarget* pRealTarget = nullptr; // of the last target made

    // Where the real targets draw to, of the same size as the view; null: the view itself. Wine shows nothing of what
    // Direct2D draws to a child window, so that only a top-level window can be looked at.
    HWND hShow = nullptr;
};

CDirect2DSpy& GetDirect2DSpy();
