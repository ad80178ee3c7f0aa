#pragma once

#include "classes/windows/system/Handles.h"
#include "tests/view/windows/ScreenCapture.h"
#include "tests/windows/CReplacedImport.h"

#include <windows.h>

#include <string>

// While an object of this class exists, it watches how frames of up to 400 x 300 pixels reach a window and which calls
// of GDI make them. Watching allocates nothing, so that a test can let allocations fail. Only one object may exist at a
// time.
class CFrameWatch
{
public:
    explicit CFrameWatch(HWND hWnd);
    ~CFrameWatch();
    CFrameWatch(const CFrameWatch&) = delete;
    CFrameWatch& operator=(const CFrameWatch&) = delete;

    // The frame that was copied to the window last.
    CPixels GetFrame() const;
    int GetFrames() const;
    int GetEllipses() const;

    // A letter for each of the last three calls: f fills a rectangle, g is GdiFlush, b brings the frame to the window.
    std::string GetLastCalls() const;

    void Forget();

private:
    CMemoryDc m_Kept; // a copy of the last frame
    CBitmapHandle m_KeptBitmap;
    CSelectObject m_KeptSelected;
    CReplacedImport m_BitBlt;
    CReplacedImport m_Ellipse;
    CReplacedImport m_FillRect;
    CReplacedImport m_GdiFlush;
};

// How the watched system draws an ellipse: as the real one, in a shape that depends on the column, or with a brush that
// has another colour than the pen.
enum class EnumEllipses : unsigned char
{
    Real,
    DependOnPosition,
    TwoColours,
};

// Applies to every ellipse of a watched system from now on; a new CFrameWatch begins with the real ones.
void SetEllipses(EnumEllipses eEllipses);
