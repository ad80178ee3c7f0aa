#pragma once

#include "simulation/CAtom.h"

// The copy of an atom that the pair tests of a cell work on: position and velocity are adjacent pairs of floats, which
// load as halves of one vector, and all atoms of the cell are contiguous. Written back when the cell is done.
struct alignas(32) CCellAtom
{
    float x;
    float y;
    float vx;
    float vy;
    float speed;
    float radius;
    float searchedX; // its position when the search last looked at it
    float searchedY;
};

static_assert(sizeof(CCellAtom) == 32);

static inline CCellAtom MakeCellAtom(const CAtom& atom)
{
    return {atom.x, atom.y, atom.vx, atom.vy, atom.speed, static_cast<float>(atom.radius), atom.x, atom.y};
}

static inline void WriteBack(const CCellAtom& from, CAtom& to)
{
    to.x = from.x; // NOLINT(clang-analyzer-core.uninitialized.Assign): OpenCell comes before CloseCell
    to.y = from.y;
    to.speed = from.speed;
    to.vx = from.vx;
    to.vy = from.vy;
}
