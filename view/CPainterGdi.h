#pragma once

#include "view/IPainter.h"

// Composes the frame off-screen in a memory bitmap and copies it to the window in one piece, so that the window never
// shows half a frame. Draws atoms in Speed mode only.
class CPainterGdi final : public IPainter
{
public:
    void PaintFrame(const CFrame& frame) override;
};

// Draws the visible atoms of scene, coloured by speed, with the stock DC pen and brush of hDc. Sets their colour only
// if the class differs from that of the atom drawn before: for atoms of one class this saves two of three calls.
void DrawAtoms_Gdi(HDC hDc, const CAtomScene& scene);
