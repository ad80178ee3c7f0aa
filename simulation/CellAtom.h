#pragma once

#include "simulation/CAtom.h"

// An atom while its cell is at work: a copy laid out so that position and velocity are one vector of four floats, and
// a whole cell lies close together. Written back when the cell is done.
struct alignas(32) CCellAtom
{
    float x;
    float y;
    float vx;
    float vy;
    float speed;
    float radius;
    float searchedX; // where the search has seen it
    float searchedY;
};

static_assert(sizeof(CCellAtom) == 32);

static inline CCellAtom MakeCellAtom(const CAtom& atom)
{
    return {atom.x, atom.y, atom.vx, atom.vy, atom.speed, static_cast<float>(atom.radius), atom.x, atom.y};
}

static inline void WriteBack(const CCellAtom& from, CAtom& to)
{
    to.x = from.x; // NOLINT(clang-analyzer-core.uninitialized.Assign): a cell is opened before it is closed
    to.y = from.y;
    to.speed = from.speed;
    to.vx = from.vx;
    to.vy = from.vy;
}
