#pragma once

#include <windows.h>

#include <d2d1.h>

// What a view is given in place of the system's factory function: makes the objects that write into GetDirect2DSpy().
HRESULT CreateSpyFactory(ID2D1Factory** ppFactory);
