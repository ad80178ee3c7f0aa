#pragma once

#include <windows.h>

struct ID2D1Factory;

// Makes a Direct2D factory for use by one thread.
using CreateDirect2DFactoryFunction = HRESULT (*)(ID2D1Factory** ppFactory);

// Takes it from the system's d2d1.dll, which is loaded at the first call and stays. A system without Direct2D is a
// failure like any other, not a program that does not start.
HRESULT CreateDirect2DFactory(ID2D1Factory** ppFactory);
