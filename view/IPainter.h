#pragma once

#include "classes/windows/drawing/CPicture.h"
#include "view/AtomScene.h"

#include <windows.h>

// The contents of one frame of the view, from back to front: backdrop, world, atoms.
struct CFrame
{
    HWND hWnd{};
    SIZE sizeWindow{};           // the whole window, scroll bars included
    const CPicture* pBackdrop{}; // null = none
    EnumPicDrawMode eBackdropMode{EnumPicDrawMode::Tiled};
    const CPicture* pWorld{};
    CAtomScene scene;
};

// Brings a frame to the window. Painting reports no errors: the window keeps its old content when a frame fails.
class IPainter
{
public:
    virtual ~IPainter() = default;
    virtual void PaintFrame(const CFrame& frame) = 0;

protected:
    IPainter() = default;
    IPainter(const IPainter&) = default;
    IPainter& operator=(const IPainter&) = default;
};
