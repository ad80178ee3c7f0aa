#pragma once

#include <windows.h>

#include <d2d1.h>

#include <string>
#include <vector>

// A Direct2D that draws nothing, counts its calls that can fail, and lets some of them fail. It needs no graphics
// hardware and no system library, so that every failure can be tried wherever the tests run.
struct CFailingDirect2D
{
    static constexpr int c_iNever = -1;

    enum class EnumFailure : unsigned char
    {
        Once,          // this one call returns the error
        FromThenOn,    // this call and all after it
        OnceWithoutAny // this one call claims success and gives no object; where none is asked for: as Once
    };

    int failAt = c_iNever; // number of the call, from 0
    EnumFailure failure = EnumFailure::Once;
    HRESULT error = E_FAIL;
    bool loseTarget = false; // the next EndDraw finds the device gone, and so do all that follow on that target

    std::vector<std::string> calls; // those that can fail, by name
    int frames = 0;                 // that were drawn to their end
    int ellipses = 0;
    int misuses = 0; // a frame that was begun twice, or ended without a beginning
    int targets = 0; // that were made
    int alive = 0;   // objects that nobody has released
};

CFailingDirect2D& GetFailingDirect2D();

// What a view is given in place of the system's factory function.
HRESULT CreateFailingFactory(ID2D1Factory** ppFactory);
