#pragma once

#include <windows.h>

struct ID2D1Factory;

// Makes a Direct2D factory for use by one thread.
using CreateDirect2DFactoryFunction = HRESULT (*)(ID2D1Factory** ppFactory);

// Loads the system's d2d1.dll at the first call and keeps it. On a system without Direct2D the call fails, but the
// program starts.
HRESULT CreateDirect2DFactory(ID2D1Factory** ppFactory);
