#pragma once

#include "view/IPainter.h"

#include <memory>

class CAtomShapes;
class CPictureBits;

// Composes the frame off-screen in memory and copies it to the window in one piece, so that the window never shows half
// a frame. Draws atoms in Speed mode only.
//
// Where the screen has 32 bits per pixel and the system's ellipses are regular (CAtomShapes), the painter writes the
// atoms' pixels itself. This takes a fraction of the time of the system's calls, and no pixel differs. Otherwise, and
// when there is no memory for that, the system draws every ellipse.
class CPainterGdi final : public IPainter
{
public:
    CPainterGdi();
    ~CPainterGdi() override;
    CPainterGdi(const CPainterGdi&) = delete;
    CPainterGdi& operator=(const CPainterGdi&) = delete;

    void PaintFrame(const CFrame& frame) override;

    // The start of a run: what the system refused before is tried again by the next frame.
    void BeginRun() { m_bLearned = m_pShapes != nullptr; }

private:
    bool PaintFrame_Spans(HDC hDcWindow, const CFrame& frame);
    bool PrepareSpans(const SIZE& size);
    bool EnsureShapes();
    bool EnsureBits(const SIZE& size);

    bool m_bLearned = false; // the shapes need not be learned again in this run
    std::unique_ptr<const CAtomShapes> m_pShapes;
    std::unique_ptr<CPictureBits> m_pBits; // kept, because the system takes long to give and clear its memory
};

// Lets the system draw the visible atoms of scene, coloured by speed, with the stock DC pen and brush of hDc. Sets
// their colour only if the class differs from that of the atom drawn before: for atoms of one class this saves two of
// three calls.
void DrawAtoms_Gdi(HDC hDc, const CAtomScene& scene);
