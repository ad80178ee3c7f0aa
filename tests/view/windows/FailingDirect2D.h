#pragma once

#include <windows.h>

#include <d2d1.h>

#include <string>
#include <vector>

// A Direct2D that draws nothing, counts the calls that can fail, and lets some of them fail. It needs neither graphics
// hardware nor a system library, so that the tests can try every failure on every machine.
struct CFailingDirect2D
{
    static constexpr int c_iNever = -1;

    enum class EnumFailure : unsigned char
    {
        Once,          // this one call returns the error
        FromThenOn,    // this call and all after it
        OnceWithoutAny // this one call reports success but returns null; same as Once for calls that return no object
    };

    int failAt = c_iNever; // number of the call, from 0
    EnumFailure failure = EnumFailure::Once;
    HRESULT error = E_FAIL;
    bool loseTarget = false; // the next EndDraw reports a lost device, and so do all later ones on that target

    std::vector<std::string> calls; // the names of the calls that can fail
    int frames = 0;                 // completed frames
    int ellipses = 0;
    int misuses = 0; // frames begun twice, or ended without a begin
    int targets = 0; // created targets
    int alive = 0;   // objects not yet released
};

CFailingDirect2D& GetFailingDirect2D();

// Replaces the system's factory function in a view.
HRESULT CreateFailingFactory(ID2D1Factory** ppFactory);
