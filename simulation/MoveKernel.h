#pragma once

#include "simulation/CAtom.h"
#include "simulation/GridGeometry.h"

#include <cstdint>

// Moving, reflecting and locating atoms, for a source that has defined Lanes: so many atoms at a time, each lane
// computing what the scalar formula says in its order. Comparisons give all-ones or zero per lane, so nothing branches
// but the storing of the velocities, which few atoms need.
//
// Everything here is static: it is compiled once per instruction set, and the linker must not merge the copies.

using Floats = float __attribute__((vector_size(sizeof(float) * Lanes::c_iCount)));
using Ints = std::int32_t __attribute__((vector_size(sizeof(std::int32_t) * Lanes::c_iCount)));

// One coordinate of some atoms against the two walls across it. Returns the lanes that bounced.
static inline Ints Reflect(Floats& position, Ints radius, Floats r, int length)
{
    const Floats under = position - r;
    const Floats over = static_cast<float>(length) - (r + position);
    const Ints below = under < 0.0F;
    const Ints beyond = ~below & (over < 0.0F);
    const Floats farMirror = __builtin_convertvector(length - radius, Floats) + over;
    position = below ? r - under : beyond ? farMirror : position;
    return below | beyond;
}

static inline Floats Negate(Floats values, Ints lanes)
{
    return lanes ? -values : values;
}

namespace // NOLINT(cert-dcl59-cpp): compiled once per instruction set, and the linker must not merge the copies
{

// One axis of a grid: its cells and their length.
struct CAxis
{
    float last;   // number of the last cell
    float length; // world units
};

// The cells along one axis that some atoms are in, and their edges.
struct CSpan
{
    Floats cell;
    Floats lowEdge;
    Floats highEdge;
    Ints reachesLower;  // the atom touches the low edge and there is a cell beyond it
    Ints reachesHigher; // likewise at the high edge
    Ints hasLower;
    Ints hasHigher;
};

} // namespace

static inline CSpan FindSpan(Floats position, Floats r, const CAxis& axis)
{
    CSpan span;
    const Floats number = position / axis.length;
    // What is no number fails the first comparison and gives cell 0.
    const Floats fromZero = number > 0.0F ? number : Floats{};
    const Floats limited = fromZero < axis.last ? fromZero : Floats{} + axis.last;
    span.cell = __builtin_convertvector(__builtin_convertvector(limited, Ints), Floats);
    span.lowEdge = span.cell * axis.length;
    span.highEdge = (span.cell + 1.0F) * axis.length;
    span.hasLower = span.cell > 0.0F;
    span.hasHigher = span.cell < axis.last;
    span.reachesLower = (span.lowEdge >= position - r) & span.hasLower;
    span.reachesHigher = (r + position >= span.highEdge) & span.hasHigher;
    return span;
}

static inline Ints BitIn(EnumNeighbour eNeighbour, Ints lanes)
{
    return lanes & (1 << static_cast<int>(eNeighbour));
}

// The places (see CGridGeometry::Locate) of some atoms.
__attribute__((always_inline)) static inline Ints LocateAtoms(Floats x, Floats y, Floats r, const CAxis& columns,
                                                              const CAxis& rows)
{
    const CSpan h = FindSpan(x, r, columns);
    const CSpan v = FindSpan(y, r, rows);
    const Floats square = r * r;
    const Floats toLeft = (h.lowEdge - x) * (h.lowEdge - x);
    const Floats toRight = (h.highEdge - x) * (h.highEdge - x);
    const Floats toTop = (v.lowEdge - y) * (v.lowEdge - y);
    const Floats toBottom = (v.highEdge - y) * (v.highEdge - y);
    // Numbers of cells are whole and below 2^24: floats hold them exactly.
    const Ints cell = __builtin_convertvector(v.cell * (columns.last + 1.0F) + h.cell, Ints);
    return (cell << c_iNeighbourCount) | BitIn(EnumNeighbour::North, v.reachesLower) |
           BitIn(EnumNeighbour::NorthEast, v.hasLower & h.hasHigher & (square >= toRight + toTop)) |
           BitIn(EnumNeighbour::East, h.reachesHigher) |
           BitIn(EnumNeighbour::SouthEast, v.hasHigher & h.hasHigher & (square >= toRight + toBottom)) |
           BitIn(EnumNeighbour::South, v.reachesHigher) |
           BitIn(EnumNeighbour::SouthWest, v.hasHigher & h.hasLower & (square >= toLeft + toBottom)) |
           BitIn(EnumNeighbour::West, h.reachesLower) |
           BitIn(EnumNeighbour::NorthWest, v.hasLower & h.hasLower & (square >= toLeft + toTop));
}

// Moves and locates as many whole groups of atoms as there are and returns how many atoms those were. The formulas are
// those of MoveAtom and CGridGeometry::Locate.
static inline int MoveAtomGroups(CAtom* pAtoms, int count, const CSize<int>& world, const CGridGeometry& geometry,
                                 std::uint32_t* pPlaces)
{
    const CAxis columns = {static_cast<float>(geometry.columns - 1), static_cast<float>(geometry.cellWidth)};
    const CAxis rows = {static_cast<float>(geometry.rows - 1), static_cast<float>(geometry.cellHeight)};
    int index = 0;
    for (; index + Lanes::c_iCount <= count; index += Lanes::c_iCount)
    {
        CAtom* const pGroup = pAtoms + index;
        const Ints radius = reinterpret_cast<Ints>(Lanes::LoadRadii(pGroup));
        const Floats r = __builtin_convertvector(radius, Floats);
        const Floats vx = Lanes::LoadField(&pGroup->vx);
        const Floats vy = Lanes::LoadField(&pGroup->vy);
        Floats x = Lanes::LoadField(&pGroup->x) + vx;
        Floats y = Lanes::LoadField(&pGroup->y) + vy;
        const Ints bouncedY = Reflect(y, radius, r, world.cy);
        const Ints bouncedX = Reflect(x, radius, r, world.cx);
        Lanes::StoreField(&pGroup->x, x);
        Lanes::StoreField(&pGroup->y, y);
        if (Lanes::HasAny(bouncedX | bouncedY)) [[unlikely]]
        {
            Lanes::StoreField(&pGroup->vx, Negate(vx, bouncedX));
            Lanes::StoreField(&pGroup->vy, Negate(vy, bouncedY));
        }
        const Ints places = LocateAtoms(x, y, r, columns, rows);
        __builtin_memcpy(pPlaces + index, &places, sizeof places);
    }
    return index;
}
